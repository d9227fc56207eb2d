// Drawing, printing, and the public device mode record.
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
#define DM_IN_PROMPT DM_PROMPT
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

// Raster operations, stretching and backgrounds.
#define SRCCOPY 0xCC0020
#define SRCPAINT 0xEE0086
#define MERGECOPY 0xC000CA
#define PATCOPY 0xF00021
#define WHITENESS 0xFF0062
#define BLACKONWHITE 1
#define COLORONCOLOR 3
#define HALFTONE 4
#define TRANSPARENT 1
#define OPAQUE 2
#define CLR_INVALID 0xFFFFFFFF

// Stock objects, pens and regions.
#define WHITE_BRUSH 0
#define BLACK_BRUSH 4
#define BLACK_PEN 7
#define SYSTEM_FONT 13
#define DEFAULT_GUI_FONT 0x11
#define PS_SOLID 0
#define NULLREGION 1
#define SIMPLEREGION 2
#define COMPLEXREGION 3
#define ERROR 0

// Bitmaps.
#define BI_RGB 0
#define BI_BITFIELDS 3
#define DIB_RGB_COLORS 0

// Text and fonts.
#define ETO_OPAQUE 2
#define ETO_CLIPPED 4
#define FW_NORMAL 0x190
#define FW_BOLD 0x2BC
#define LF_FACESIZE 0x20
#define DEFAULT_CHARSET 1
#define VARIABLE_PITCH 2
#define FF_SWISS 0x20

// Resolution, colour management and printing.
#define LOGPIXELSY 0x5A
#define ICM_OFF 1
#define ICM_ON 2
#define ICM_QUERY 3
#define SP_ERROR (-1)

#define RGB(r, g, b) ((COLORREF)((BYTE)(r) | ((WORD)(BYTE)(g) << 8) | ((DWORD)(BYTE)(b) << 16)))
#define GetRValue(rgb) ((BYTE)(rgb))
#define GetBValue(rgb) ((BYTE)((rgb) >> 16))

struct BITMAP {
    LONG bmType;
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    LPVOID bmBits;
};

struct BITMAPINFOHEADER {
    DWORD biSize;
    LONG biWidth;
    LONG biHeight;
    WORD biPlanes;
    WORD biBitCount;
    DWORD biCompression;
    DWORD biSizeImage;
    LONG biXPelsPerMeter;
    LONG biYPelsPerMeter;
    DWORD biClrUsed;
    DWORD biClrImportant;
};

struct RGBQUAD {
    BYTE rgbBlue;
    BYTE rgbGreen;
    BYTE rgbRed;
    BYTE rgbReserved;
};

struct BITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];
};

#pragma pack(push, 2)
struct BITMAPFILEHEADER {
    WORD bfType;
    DWORD bfSize;
    WORD bfReserved1;
    WORD bfReserved2;
    DWORD bfOffBits;
};
#pragma pack(pop)

struct LOGPEN {
    UINT lopnStyle;
    POINT lopnWidth;
    COLORREF lopnColor;
};

struct LOGFONTW {
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    WCHAR lfFaceName[LF_FACESIZE];
};

struct TEXTMETRICW {
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    WCHAR tmFirstChar;
    WCHAR tmLastChar;
    WCHAR tmDefaultChar;
    WCHAR tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
};

struct DOCINFOW {
    int cbSize;
    LPCWSTR lpszDocName;
    LPCWSTR lpszOutput;
    LPCWSTR lpszDatatype;
    DWORD fwType;
};

extern "C" {

// Device contexts.
HDC WINAPI CreateCompatibleDC(HDC context);
HDC WINAPI CreateDCW(LPCWSTR driver, LPCWSTR device, LPCWSTR port, const DEVMODEW* record);
BOOL WINAPI DeleteDC(HDC context);
int WINAPI SaveDC(HDC context);
BOOL WINAPI RestoreDC(HDC context, int saved);
int WINAPI GetDeviceCaps(HDC context, int index);
int WINAPI SetICMMode(HDC context, int mode);
BOOL WINAPI SetBrushOrgEx(HDC context, int x, int y, LPPOINT previous);
int WINAPI IntersectClipRect(HDC context, int left, int top, int right, int bottom);
int WINAPI ExcludeClipRect(HDC context, int left, int top, int right, int bottom);
int WINAPI GetClipBox(HDC context, LPRECT rect);

// Objects.
HGDIOBJ WINAPI SelectObject(HDC context, HGDIOBJ object);
BOOL WINAPI DeleteObject(HGDIOBJ object);
HGDIOBJ WINAPI GetStockObject(int index);
int WINAPI GetObjectW(HANDLE object, int size, LPVOID description);
HBRUSH WINAPI CreateSolidBrush(COLORREF color);
HBRUSH WINAPI CreatePatternBrush(HBITMAP bitmap);
HPEN WINAPI CreatePen(int style, int width, COLORREF color);
HFONT WINAPI CreateFontIndirectW(const LOGFONTW* font);

// Bitmaps.
HBITMAP WINAPI CreateCompatibleBitmap(HDC context, int width, int height);
HBITMAP WINAPI CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel,
                            const void* bits);
HBITMAP WINAPI CreateDIBSection(HDC context, const BITMAPINFO* info, UINT usage, void** bits,
                                HANDLE section, DWORD offset);
int WINAPI SetDIBitsToDevice(HDC context, int x, int y, DWORD width, DWORD height, int sourceX,
                             int sourceY, UINT start, UINT lines, const void* bits,
                             const BITMAPINFO* info, UINT usage);
int WINAPI StretchDIBits(HDC context, int x, int y, int width, int height, int sourceX, int sourceY,
                         int sourceWidth, int sourceHeight, const void* bits,
                         const BITMAPINFO* info, UINT usage, DWORD operation);

// Drawing.
BOOL WINAPI BitBlt(HDC context, int x, int y, int width, int height, HDC source, int sourceX,
                   int sourceY, DWORD operation);
BOOL WINAPI StretchBlt(HDC context, int x, int y, int width, int height, HDC source, int sourceX,
                       int sourceY, int sourceWidth, int sourceHeight, DWORD operation);
BOOL WINAPI PatBlt(HDC context, int x, int y, int width, int height, DWORD operation);
int WINAPI SetStretchBltMode(HDC context, int mode);
COLORREF WINAPI SetPixel(HDC context, int x, int y, COLORREF color);
COLORREF WINAPI GetPixel(HDC context, int x, int y);
BOOL WINAPI RoundRect(HDC context, int left, int top, int right, int bottom, int width, int height);

// Text.
BOOL WINAPI TextOutW(HDC context, int x, int y, LPCWSTR text, int length);
BOOL WINAPI ExtTextOutW(HDC context, int x, int y, UINT options, const RECT* rect, LPCWSTR text,
                        UINT length, const int* distances);
BOOL WINAPI GetTextExtentPoint32W(HDC context, LPCWSTR text, int length, LPSIZE size);
BOOL WINAPI GetTextMetricsW(HDC context, TEXTMETRICW* metrics);
COLORREF WINAPI SetTextColor(HDC context, COLORREF color);
COLORREF WINAPI GetTextColor(HDC context);
COLORREF WINAPI SetBkColor(HDC context, COLORREF color);
COLORREF WINAPI GetBkColor(HDC context);
int WINAPI SetBkMode(HDC context, int mode);

// Printed documents.
int WINAPI StartDocW(HDC context, const DOCINFOW* document);
int WINAPI EndDoc(HDC context);
int WINAPI AbortDoc(HDC context);
int WINAPI StartPage(HDC context);
int WINAPI EndPage(HDC context);

}  // extern "C"
