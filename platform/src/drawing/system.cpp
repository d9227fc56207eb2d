// The screen as settings dialogs find it: the classic colours, and sizes in pixels.
#include "state.h"

#include <map>

namespace {

constexpr COLORREF kFace = RGB(0xD4, 0xD0, 0xC8);
constexpr COLORREF kShadow = RGB(0x80, 0x80, 0x80);
constexpr COLORREF kSelected = RGB(0x0A, 0x24, 0x6A);
constexpr COLORREF kWhite = RGB(0xFF, 0xFF, 0xFF);
constexpr COLORREF kLightCaption = RGB(0xA6, 0xCA, 0xF0);
constexpr COLORREF kGreyCaption = RGB(0xC0, 0xC0, 0xC0);

// By number, COLOR_SCROLLBAR first.
constexpr COLORREF kColors[] = {
    kFace,
    RGB(0x3A, 0x6E, 0xA5),
    kSelected,
    kShadow,
    kFace,
    kWhite,
    0,
    0,
    0,
    kWhite,
    kFace,
    kFace,
    kShadow,
    kSelected,
    kWhite,
    kFace,
    kShadow,
    kShadow,
    0,
    kFace,
    kWhite,
    RGB(0x40, 0x40, 0x40),
    kFace,
    0,
    RGB(0xFF, 0xFF, 0xE1),
    RGB(0xB5, 0xB5, 0xB5),
    RGB(0, 0, 0x80),
    kLightCaption,
    kGreyCaption,
    kSelected,
    kFace,
};

}  // namespace

DWORD WINAPI GetSysColor(int index) {
    if (index < 0 || index >= static_cast<int>(std::size(kColors))) {
        host::Unsupported("GetSysColor(%d)", index);
    }
    return kColors[index];
}

int WINAPI GetSystemMetrics(int index) {
    static const std::map<int, int> metrics = {
        {SM_CXSCREEN, 1280}, {SM_CYSCREEN, 1024}, {SM_CXVSCROLL, 17}, {SM_CYCAPTION, 19},
        {SM_CYVTHUMB, 17},   {SM_CXHTHUMB, 17},   {SM_CXICON, 32},    {SM_CYICON, 32},
        {SM_CYMENU, 19},     {SM_CYVSCROLL, 17},  {SM_CXHSCROLL, 17}, {SM_CXEDGE, 2},
    };
    const auto it = metrics.find(index);
    if (it == metrics.end()) {
        host::Unsupported("GetSystemMetrics(%d)", index);
    }
    return it->second;
}
