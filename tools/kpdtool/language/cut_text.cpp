// Measuring with the platform's own drawing: the fonts are those of the user at this computer.
#include "cut_text.h"

#include <algorithm>
#include <iterator>

namespace kpdtool {
namespace {

using WideString = std::basic_string<WCHAR>;

// ---- Letters that join --------------------------------------------------------------------------

// Letters whose forms stand in one row of the character set, in this order: alone, joined to the
// one before, to the one behind, to both.
struct JoiningLetter {
    WCHAR letter;
    WCHAR alone;
    int forms;  ///< 1: joins nothing, 2: only the letter before it, 4: both
};

constexpr JoiningLetter kPersianLetters[] = {
    {0x067E, 0xFB56, 4}, {0x0686, 0xFB7A, 4}, {0x0698, 0xFB8A, 2},
    {0x06A9, 0xFB8E, 4}, {0x06AF, 0xFB92, 4}, {0x06CC, 0xFBFC, 4},
};

// The forms of the letters 0621 to 063A and 0641 to 064A, whose rows follow one another.
constexpr char kArabicForms[] =
    "12222424244444222244444444"
    "4444444224";

JoiningLetter FindLetter(WCHAR c) {
    const auto* persian = std::ranges::find(kPersianLetters, c, &JoiningLetter::letter);
    if (persian != std::end(kPersianLetters)) {
        return *persian;
    }
    const bool isFirstRow = c >= 0x0621 && c <= 0x063A;
    if (!isFirstRow && (c < 0x0641 || c > 0x064A)) {
        return {c, c, 0};
    }
    const int index = isFirstRow ? c - 0x0621 : c - 0x0641 + 26;
    WCHAR alone = 0xFE80;
    for (int i = 0; i < index; ++i) {
        alone = static_cast<WCHAR>(alone + kArabicForms[i] - '0');
    }
    return {c, alone, kArabicForms[index] - '0'};
}

// ---- Room and need ------------------------------------------------------------------------------

constexpr int kTitleControl = 0;

WideString TextOf(HWND window) {
    WCHAR text[1024] = {};
    GetWindowTextW(window, text, 1024);
    return text;
}

// How much more than `room` a text of a control needs, drawn in its font.
CutText Measure(HWND control, const WideString& text, const RECT& room, UINT format) {
    const WideString drawn = Joined(text);
    RECT needed = room;
    HDC context = GetDC(control);
    const auto font = reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0));
    HGDIOBJ before = font != nullptr ? SelectObject(context, font) : nullptr;
    DrawTextW(context, drawn.c_str(), static_cast<int>(drawn.size()), &needed,
              DT_CALCRECT | format);
    if (before != nullptr) {
        SelectObject(context, before);
    }
    ReleaseDC(control, context);
    const int wider = static_cast<int>(std::max<LONG>(0, needed.right - room.right));
    const int higher = static_cast<int>(std::max<LONG>(0, needed.bottom - room.bottom));
    if (wider == 0 && higher == 0) {
        return {};
    }
    return {text, wider, higher, GetDlgCtrlID(control)};
}

CutText CutItemOf(HWND comboBox) {
    constexpr int kMargin = 6;  // of the text, both sides
    RECT room;
    GetClientRect(comboBox, &room);
    room.right -= GetSystemMetrics(SM_CXVSCROLL) + kMargin;
    room.bottom = 0x7FFF;  // of the list, not of the closed box
    const LRESULT count = SendMessageW(comboBox, CB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        WCHAR text[1024] = {};
        SendMessageW(comboBox, CB_GETLBTEXT, static_cast<WPARAM>(i),
                     reinterpret_cast<LPARAM>(text));
        if (const CutText cut = Measure(comboBox, text, room, DT_SINGLELINE); !cut.text.empty()) {
            return cut;
        }
    }
    return {};
}

// Titles are drawn bold, an eighth wider than in the dialog's own font, before a button to close.
CutText CutTitleOf(HWND dialog) {
    constexpr int kMargin = 8;
    if ((GetWindowLongW(dialog, GWL_STYLE) & (WS_CHILD | WS_CAPTION)) != WS_CAPTION) {
        return {};
    }
    RECT room;
    GetClientRect(dialog, &room);
    room.right = (room.right - GetSystemMetrics(SM_CYCAPTION) - kMargin) * 8 / 9;
    CutText cut = Measure(dialog, TextOf(dialog), room, DT_SINGLELINE);
    cut.wider = cut.wider * 9 / 8;
    cut.control = kTitleControl;
    return cut;
}

}  // namespace

WideString Joined(const WideString& text) {
    WideString joined = text;
    bool afterJoining = false;
    for (size_t i = 0; i < text.size(); ++i) {
        const JoiningLetter letter = FindLetter(text[i]);
        if (letter.forms == 0) {
            afterJoining = false;
            continue;
        }
        const bool joinsBefore = afterJoining && letter.forms > 1;
        const bool joinsBehind =
            letter.forms == 4 && i + 1 < text.size() && FindLetter(text[i + 1]).forms > 1;
        joined[i] =
            static_cast<WCHAR>(letter.alone + (joinsBefore ? 1 : 0) + (joinsBehind ? 2 : 0));
        afterJoining = joinsBehind;
    }
    return joined;
}

CutText CutTextOf(HWND control) {
    constexpr int kMargin = 8;      // of a push button's or group box's text, both sides
    constexpr int kIndicator = 18;  // of a check box or radio button, with its gap
    WCHAR name[16] = {};
    GetClassNameW(control, name, 16);
    if (WideString(name) == TEXT("ComboBox")) {
        return CutItemOf(control);
    }
    if (WideString(name) == TEXT("#32770")) {
        return CutTitleOf(control);
    }
    const bool isButton = WideString(name) == TEXT("Button");
    if (!isButton && WideString(name) != TEXT("Static")) {
        return {};
    }
    const LONG style = GetWindowLongW(control, GWL_STYLE);
    const LONG kind = style & BS_TYPEMASK;
    const bool wraps = !isButton || (style & BS_MULTILINE) != 0;
    const bool hasIndicator = isButton && kind >= BS_CHECKBOX && kind <= BS_AUTORADIOBUTTON &&
                              kind != BS_GROUPBOX && kind != BS_USERBUTTON;
    RECT room;
    GetClientRect(control, &room);
    room.right -= hasIndicator ? kIndicator : isButton ? kMargin : 0;
    return Measure(control, TextOf(control), room, wraps ? DT_WORDBREAK : DT_SINGLELINE);
}

std::vector<CutText> CutTextsOf(HWND dialog) {
    std::vector<CutText> texts;
    const auto add = [&](HWND window) {
        if (CutText cut = CutTextOf(window); !cut.text.empty()) {
            texts.push_back(std::move(cut));
        }
    };
    add(dialog);
    for (HWND control = GetWindow(dialog, GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        add(control);
    }
    return texts;
}

}  // namespace kpdtool
