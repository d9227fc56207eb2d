// The items of the ribbon list.
#include "ui/pages/device_options/ribbon_item.h"

#include "core/text.h"
#include "ui/common/language.h"

namespace {

constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kWhite = RGB(255, 255, 255);

struct LetterColors {
    WCHAR Letter;
    COLORREF Text;
    COLORREF Background;
};
constexpr LetterColors kLetters[] = {
    {'Y', kBlack, RGB(255, 255, 0)},   {'M', kBlack, RGB(255, 0, 255)},
    {'C', kBlack, RGB(0, 255, 255)},   {'K', kWhite, kBlack},
    {'F', kBlack, RGB(208, 255, 255)}, {'B', kWhite, RGB(128, 128, 128)},
};

// Ribbons of one colour are drawn on it as a whole.
constexpr struct {
    const WCHAR* Name;
    COLORREF Background;
} kSwatches[] = {
    {TEXT("Gold"), RGB(255, 223, 0)},
    {TEXT("Silver"), RGB(230, 232, 250)},
    {TEXT("White"), kWhite},
};

LetterColors ColorsOf(WideView text, WCHAR letter) {
    for (const auto& swatch : kSwatches) {
        if (text == swatch.Name) {
            return {letter, kBlack, swatch.Background};
        }
    }
    for (const LetterColors& colors : kLetters) {
        if (colors.Letter == letter) {
            return colors;
        }
    }
    return {letter, kBlack, kWhite};
}

void FillBackground(const DRAWITEMSTRUCT& item) {
    const bool drawn = (item.itemAction & (ODA_FOCUS | ODA_DRAWENTIRE)) != 0;
    const bool focused = drawn && (item.itemState & ODS_FOCUS) != 0;
    if (HBRUSH brush = CreateSolidBrush(focused ? GetSysColor(COLOR_HIGHLIGHT) : kWhite)) {
        FillRect(item.hDC, &item.rcItem, brush);
        DeleteObject(brush);
    }
}

void DrawLetters(const DRAWITEMSTRUCT& item, WideView text) {
    TEXTMETRICW metrics = {};
    GetTextMetricsW(item.hDC, &metrics);
    const int y = (item.rcItem.top + item.rcItem.bottom - metrics.tmHeight) / 2;
    const COLORREF textBefore = GetTextColor(item.hDC);
    const COLORREF backgroundBefore = GetBkColor(item.hDC);
    RECT cell = item.rcItem;
    for (const WCHAR& letter : text) {
        const LetterColors colors = ColorsOf(text, letter);
        SIZE extent = {};
        GetTextExtentPoint32W(item.hDC, &letter, 1, &extent);
        cell.right = cell.left + extent.cx;
        SetTextColor(item.hDC, colors.Text);
        SetBkColor(item.hDC, colors.Background);
        ExtTextOutW(item.hDC, cell.left, y, ETO_OPAQUE | ETO_CLIPPED, &cell, &letter, 1, nullptr);
        cell.left = cell.right;
    }
    SetTextColor(item.hDC, textBefore);
    SetBkColor(item.hDC, backgroundBefore);
}

}  // namespace

void DrawRibbonItem(const DRAWITEMSTRUCT& item) {
    FillBackground(item);
    const LRESULT length = SendMessageW(item.hwndItem, CB_GETLBTEXTLEN, item.itemID, 0);
    WCHAR text[kTextLength];
    if (length > 0 && length < static_cast<LRESULT>(kTextLength)) {
        SendMessageW(item.hwndItem, CB_GETLBTEXT, item.itemID, reinterpret_cast<LPARAM>(text));
        DrawLetters(item, {text, static_cast<size_t>(length)});
    }
}
