// The platform's interface as the driver uses it, supplied by the stand-in. One file per service,
// named as the platform names them.
#pragma once

#include <winbase.h>
#include <windef.h>
#include <winerror.h>
#include <wingdi.h>
#include <winnls.h>
#include <winreg.h>
#include <winuser.h>
