// The public device mode record and the names of its fields' values.
#pragma once

#include <windef.h>

#define CCHDEVICENAME 32
#define CCHFORMNAME 32

struct POINTL {
    LONG x;
    LONG y;
};

struct DEVMODEW {
    WCHAR dmDeviceName[CCHDEVICENAME];
    WORD dmSpecVersion;
    WORD dmDriverVersion;
    WORD dmSize;
    WORD dmDriverExtra;
    DWORD dmFields;
    SHORT dmOrientation;
    SHORT dmPaperSize;
    SHORT dmPaperLength;
    SHORT dmPaperWidth;
    SHORT dmScale;
    SHORT dmCopies;
    SHORT dmDefaultSource;
    SHORT dmPrintQuality;
    SHORT dmColor;
    SHORT dmDuplex;
    SHORT dmYResolution;
    SHORT dmTTOption;
    SHORT dmCollate;
    WCHAR dmFormName[CCHFORMNAME];
    WORD dmLogPixels;
    DWORD dmBitsPerPel;
    DWORD dmPelsWidth;
    DWORD dmPelsHeight;
    DWORD dmNup;
    DWORD dmDisplayFrequency;
    DWORD dmICMMethod;
    DWORD dmICMIntent;
    DWORD dmMediaType;
    DWORD dmDitherType;
    DWORD dmReserved1;
    DWORD dmReserved2;
    DWORD dmPanningWidth;
    DWORD dmPanningHeight;
};
using PDEVMODEW = DEVMODEW*;
using LPDEVMODEW = DEVMODEW*;

#define DM_ORIENTATION 0x00000001u
#define DM_PAPERSIZE 0x00000002u
#define DM_PAPERLENGTH 0x00000004u
#define DM_PAPERWIDTH 0x00000008u
#define DM_SCALE 0x00000010u
#define DM_NUP 0x00000040u
#define DM_COPIES 0x00000100u
#define DM_DEFAULTSOURCE 0x00000200u
#define DM_PRINTQUALITY 0x00000400u
#define DM_COLOR 0x00000800u
#define DM_DUPLEX 0x00001000u
#define DM_YRESOLUTION 0x00002000u
#define DM_TTOPTION 0x00004000u
#define DM_COLLATE 0x00008000u
#define DM_FORMNAME 0x00010000u
#define DM_ICMMETHOD 0x00800000u
#define DM_ICMINTENT 0x01000000u
#define DM_MEDIATYPE 0x02000000u
#define DM_DITHERTYPE 0x04000000u

#define DM_UPDATE 1
#define DM_COPY 2
#define DM_PROMPT 4
#define DM_MODIFY 8
#define DM_IN_BUFFER DM_MODIFY
#define DM_OUT_BUFFER DM_COPY

#define DMORIENT_PORTRAIT 1
#define DMORIENT_LANDSCAPE 2
#define DMBIN_AUTO 7
#define DMCOLOR_MONOCHROME 1
#define DMCOLOR_COLOR 2
#define DMDUP_SIMPLEX 1
#define DMDUP_VERTICAL 2
#define DMDUP_HORIZONTAL 3
#define DMTT_BITMAP 1
#define DMCOLLATE_FALSE 0
#define DMCOLLATE_TRUE 1
#define DMICMMETHOD_NONE 1
#define DMICMMETHOD_SYSTEM 2
#define DMICM_COLORIMETRIC 3
#define DMDITHER_NONE 1

#define DC_FIELDS 1
#define DC_PAPERS 2
#define DC_PAPERSIZE 3
#define DC_MINEXTENT 4
#define DC_MAXEXTENT 5
#define DC_BINS 6
#define DC_DUPLEX 7
#define DC_SIZE 8
#define DC_EXTRA 9
#define DC_VERSION 10
#define DC_DRIVER 11
#define DC_BINNAMES 12
#define DC_ENUMRESOLUTIONS 13
#define DC_FILEDEPENDENCIES 14
#define DC_TRUETYPE 15
#define DC_PAPERNAMES 16
#define DC_ORIENTATION 17
#define DC_COPIES 18
#define DC_COLLATE 22
#define DC_MEDIAREADY 29
#define DC_STAPLE 30
#define DC_COLORDEVICE 32
#define DC_NUP 33
#define DC_MEDIATYPES 35
