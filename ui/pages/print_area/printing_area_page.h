// The Printing Area page: which printing areas the overcoat and resin panels use.
#pragma once

#include "ui/common/page.h"

extern const Page kPrintingAreaPage;
