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
#define SRCAND 0x8800C6
#define SRCINVERT 0x660046
#define NOTSRCCOPY 0x330008
#define MERGEPAINT 0xBB0226
#define PATCOPY 0xF00021
#define PATINVERT 0x5A0049
#define DSTINVERT 0x550009
#define BLACKNESS 0x42
#define WHITENESS 0xFF0062
#define BLACKONWHITE 1
#define COLORONCOLOR 3
#define HALFTONE 4
#define TRANSPARENT 1
#define OPAQUE 2
#define R2_BLACK 1
#define R2_NOT 6
#define R2_XORPEN 7
#define R2_COPYPEN 13
#define R2_WHITE 0x10
#define CLR_INVALID 0xFFFFFFFF
#define GDI_ERROR 0xFFFFFFFF

// Stock objects and kinds of objects.
#define WHITE_BRUSH 0
#define LTGRAY_BRUSH 1
#define GRAY_BRUSH 2
#define DKGRAY_BRUSH 3
#define BLACK_BRUSH 4
#define NULL_BRUSH 5
#define WHITE_PEN 6
#define BLACK_PEN 7
#define NULL_PEN 8
#define ANSI_VAR_FONT 12
#define SYSTEM_FONT 13
#define DEFAULT_GUI_FONT 0x11
#define DC_BRUSH 0x12
#define DC_PEN 0x13
#define OBJ_PEN 1
#define OBJ_BRUSH 2
#define OBJ_DC 3
#define OBJ_MEMDC 10
#define OBJ_FONT 6
#define OBJ_BITMAP 7
#define PS_SOLID 0
#define PS_DASH 1
#define PS_DOT 2
#define PS_NULL 5
#define PS_INSIDEFRAME 6
#define BS_SOLID 0
#define BS_NULL 1
#define BS_PATTERN 3
#define NULLREGION 1
#define SIMPLEREGION 2
#define COMPLEXREGION 3
#define ERROR 0

// Bitmaps.
#define BI_RGB 0
#define BI_BITFIELDS 3
#define DIB_RGB_COLORS 0

// Text and fonts.
#define TA_LEFT 0
#define TA_RIGHT 2
#define TA_CENTER 6
#define TA_TOP 0
#define TA_BOTTOM 8
#define TA_BASELINE 0x18
#define ETO_OPAQUE 2
#define ETO_CLIPPED 4
#define FW_NORMAL 0x190
#define FW_BOLD 0x2BC
#define LF_FACESIZE 0x20
#define DEFAULT_CHARSET 1
#define VARIABLE_PITCH 2
#define FF_SWISS 0x20

// Device capabilities, mapping and colour management.
#define HORZSIZE 4
#define VERTSIZE 6
#define HORZRES 8
#define VERTRES 10
#define BITSPIXEL 12
#define PLANES 14
#define LOGPIXELSX 0x58
#define LOGPIXELSY 0x5A
#define PHYSICALWIDTH 0x6E
#define PHYSICALHEIGHT 0x6F
#define PHYSICALOFFSETX 0x70
#define PHYSICALOFFSETY 0x71
#define RASTERCAPS 0x26
#define TECHNOLOGY 2
#define DT_RASPRINTER 2
#define DT_RASDISPLAY 1
#define MM_TEXT 1
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

struct LOGBRUSH {
    UINT lbStyle;
    COLORREF lbColor;
    ULONG_PTR lbHatch;
};

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
HDC WINAPI CreateICW(LPCWSTR driver, LPCWSTR device, LPCWSTR port, const DEVMODEW* record);
BOOL WINAPI DeleteDC(HDC context);
int WINAPI SaveDC(HDC context);
BOOL WINAPI RestoreDC(HDC context, int saved);
int WINAPI GetDeviceCaps(HDC context, int index);
int WINAPI SetICMMode(HDC context, int mode);
int WINAPI SetMapMode(HDC context, int mode);
BOOL WINAPI SetViewportOrgEx(HDC context, int x, int y, LPPOINT previous);
BOOL WINAPI SetBrushOrgEx(HDC context, int x, int y, LPPOINT previous);
int WINAPI IntersectClipRect(HDC context, int left, int top, int right, int bottom);
int WINAPI ExcludeClipRect(HDC context, int left, int top, int right, int bottom);
int WINAPI GetClipBox(HDC context, LPRECT rect);

// Objects.
HGDIOBJ WINAPI SelectObject(HDC context, HGDIOBJ object);
BOOL WINAPI DeleteObject(HGDIOBJ object);
HGDIOBJ WINAPI GetStockObject(int index);
HGDIOBJ WINAPI GetCurrentObject(HDC context, UINT kind);
int WINAPI GetObjectW(HANDLE object, int size, LPVOID description);
DWORD WINAPI GetObjectType(HGDIOBJ object);
HBRUSH WINAPI CreateSolidBrush(COLORREF color);
HBRUSH WINAPI CreatePatternBrush(HBITMAP bitmap);
HPEN WINAPI CreatePen(int style, int width, COLORREF color);
HFONT WINAPI CreateFontIndirectW(const LOGFONTW* font);
COLORREF WINAPI SetDCBrushColor(HDC context, COLORREF color);
COLORREF WINAPI SetDCPenColor(HDC context, COLORREF color);

// Bitmaps.
HBITMAP WINAPI CreateCompatibleBitmap(HDC context, int width, int height);
HBITMAP WINAPI CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel,
                            const void* bits);
HBITMAP WINAPI CreateDIBSection(HDC context, const BITMAPINFO* info, UINT usage, void** bits,
                                HANDLE section, DWORD offset);
int WINAPI GetDIBits(HDC context, HBITMAP bitmap, UINT start, UINT lines, LPVOID bits,
                     BITMAPINFO* info, UINT usage);
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
int WINAPI SetROP2(HDC context, int operation);
COLORREF WINAPI SetPixel(HDC context, int x, int y, COLORREF color);
COLORREF WINAPI GetPixel(HDC context, int x, int y);
BOOL WINAPI MoveToEx(HDC context, int x, int y, LPPOINT previous);
BOOL WINAPI LineTo(HDC context, int x, int y);
BOOL WINAPI Polyline(HDC context, const POINT* points, int count);
BOOL WINAPI Polygon(HDC context, const POINT* points, int count);
BOOL WINAPI Rectangle(HDC context, int left, int top, int right, int bottom);
BOOL WINAPI RoundRect(HDC context, int left, int top, int right, int bottom, int width, int height);
BOOL WINAPI Ellipse(HDC context, int left, int top, int right, int bottom);

// Text.
BOOL WINAPI TextOutW(HDC context, int x, int y, LPCWSTR text, int length);
BOOL WINAPI ExtTextOutW(HDC context, int x, int y, UINT options, const RECT* rect, LPCWSTR text,
                        UINT length, const int* distances);
BOOL WINAPI GetTextExtentPoint32W(HDC context, LPCWSTR text, int length, LPSIZE size);
BOOL WINAPI GetTextMetricsW(HDC context, TEXTMETRICW* metrics);
BOOL WINAPI GetCharWidth32W(HDC context, UINT first, UINT last, LPINT widths);
COLORREF WINAPI SetTextColor(HDC context, COLORREF color);
COLORREF WINAPI GetTextColor(HDC context);
COLORREF WINAPI SetBkColor(HDC context, COLORREF color);
COLORREF WINAPI GetBkColor(HDC context);
int WINAPI SetBkMode(HDC context, int mode);
UINT WINAPI SetTextAlign(HDC context, UINT align);

// Printed documents.
int WINAPI StartDocW(HDC context, const DOCINFOW* document);
int WINAPI EndDoc(HDC context);
int WINAPI AbortDoc(HDC context);
int WINAPI StartPage(HDC context);
int WINAPI EndPage(HDC context);

}  // extern "C"
