// The Import/Export page: settings carried to another computer in a file.
#pragma once

#include "ui/common/page.h"

extern const Page kImportExportPage;
