// The entry point that a designer must have though nobody calls it.
#include "area_request.h"
#include "operation.h"

OPERATION DWORD WINAPI EnumPrintAreaFiles() {
    CallNotes("EnumPrintAreaFiles").Require(false, "nobody calls it");
    return 0;
}
