// The Lamination page: the laminator's film and parameters.
#pragma once

#include "ui/common/page.h"

extern const Page kLaminationPage;
