// The Tools page: the printer's maintenance functions.
#pragma once

#include "ui/common/page.h"

extern const Page kToolsPage;
