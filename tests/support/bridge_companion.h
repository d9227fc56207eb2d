// The device I/O library of the tests: it notes what it is asked for and answers as a test wants.
#pragma once

#include <windows.h>

struct BridgeNotes {
    int Sent;     ///< calibration tables
    int Reports;  ///< maintenance reports
    int RibbonQueries;
    WCHAR Printer[64];  ///< of the last call
    BYTE Table[128];    ///< the last one sent
    DWORD TableSize;
    BYTE RibbonCode;  ///< the answer to come
    DWORD Remaining;
    DWORD RibbonFailure;
};
