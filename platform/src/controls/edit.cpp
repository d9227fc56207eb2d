// The class "Edit": a line that the user edits, or several that he reads.
#include "controls/common_control.h"
#include "controls/scroll_bar.h"

#include <algorithm>

namespace host {
namespace {

using common::Control;

constexpr DWORD kKnownStyles = ES_CENTER | ES_RIGHT | ES_MULTILINE | ES_UPPERCASE | ES_LOWERCASE |
                               ES_PASSWORD | ES_AUTOVSCROLL | ES_AUTOHSCROLL | ES_NOHIDESEL |
                               ES_READONLY | ES_WANTRETURN | ES_NUMBER;
constexpr size_t kFirstLimit = 30000;
constexpr size_t kLineLimit = 0x7FFFFFFE;   // what 0 as a limit means for one line,
constexpr size_t kLinesLimit = 0xFFFFFFFF;  // and for several
constexpr int kMargin = 1;

// What every edit control of the program cuts into and pastes from.
WideString& Clipboard() {
    static WideString text;
    return text;
}

// A character from the first of a range of small letters to its capital.
constexpr struct {
    WCHAR first;
    WCHAR last;
    int toCapital;
} kLetters[] = {
    {'a', 'z', -0x20},     {0xE0, 0xF6, -0x20},   {0xF8, 0xFE, -0x20},   {0x3B1, 0x3C1, -0x20},
    {0x3C3, 0x3C9, -0x20}, {0x430, 0x44F, -0x20}, {0x450, 0x45F, -0x50},
};

WCHAR Cased(WCHAR c, bool toCapital) {
    for (const auto& [first, last, distance] : kLetters) {
        const int from = toCapital ? c : c - distance;
        if (from >= first && from <= last) {
            return static_cast<WCHAR>(toCapital ? c + distance : from);
        }
    }
    return c;
}

class Edit : public Control {
  public:
    explicit Edit(HWND window)
        : Control(window), bar_(window, [this](WORD code, int at) { Scroll(code, at); }) {}
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

  protected:
    void Paint(HDC context) override;
    void Measure() override { UpdateBar(); }

  private:
    struct Line {
        size_t start;
        size_t end;  // its line break is beyond
    };
    // What was done last: that many characters stand where the removed ones stood.
    struct Step {
        size_t at = 0;
        size_t inserted = 0;
        WideString removed;
    };
    enum class Source { kProgram, kKeys, kOther };

    bool Has(DWORD style) const { return (Style() & style) == style; }
    bool IsMultiLine() const { return Has(ES_MULTILINE); }
    bool IsReadOnly() const { return Has(ES_READONLY); }
    bool HasSelection() const { return anchor_ != caret_; }
    size_t SelectionStart() const { return std::min(anchor_, caret_); }
    size_t SelectionEnd() const { return std::max(anchor_, caret_); }
    WideString Selection() const {
        return text_.substr(SelectionStart(), SelectionEnd() - SelectionStart());
    }

    void Create(const CREATESTRUCTW& creation);
    LRESULT HandleEdit(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleLines(UINT message, WPARAM wParam, LPARAM lParam) const;
    void HandleClipboard(UINT message);
    bool HandleMouse(UINT message, LPARAM lParam);
    void NotifyCommand(UINT code) const;

    void SetText(const WCHAR* text);
    LRESULT GiveText(WPARAM room, LPARAM buffer) const;
    WideString InCase(WideString text) const;
    void Select(LONG_PTR start, LONG_PTR end);
    void Replace(WideString text, Source source, bool canUndo = true);
    void Remember(const WideString& text, Source source, bool canUndo);
    void Undo();
    void Changed();

    void TypeCharacter(WCHAR character);
    void Erase(size_t from, size_t to);
    bool HandleKey(WPARAM key);
    bool HandleDialogKey(WPARAM key);
    void MoveCaret(size_t to);
    size_t Below(int lines) const;
    void SelectWord();

    WideString Shown(const Line& line) const;
    std::vector<Line> Lines() const;
    size_t LineOf(const std::vector<Line>& lines, size_t at) const;
    size_t EndOfRow(size_t start, size_t end, int width) const;
    LONG WidthOf(const Line& line, size_t count) const {
        return TextSize(Shown(line).substr(0, count)).cx;
    }
    LONG LeftOf(const Line& line) const;
    size_t AtPoint(POINT point) const;
    size_t AtX(const Line& line, LONG x) const;
    RECT Place() const;
    int Rows() const { return std::max(1, static_cast<int>(Place().bottom / FontHeight())); }
    void Scroll(WORD code, int position);
    void SetTop(int line);
    void Reveal();
    void UpdateBar();

    HBRUSH Background(HDC context) const;
    void PaintLine(HDC context, const Line& line, LONG y) const;

    FrameBar bar_;
    WideString text_;
    size_t anchor_ = 0;
    size_t caret_ = 0;
    size_t limit_ = kFirstLimit;
    int top_ = 0;  // the first line that is shown
    Step step_;
    bool canUndo_ = false;
    bool isTyping_ = false;  // the last step was typed, and grows with what is typed next
    bool modified_ = false;
    bool focused_ = false;
    bool dragging_ = false;
    WCHAR password_ = '*';
};

void Edit::Create(const CREATESTRUCTW& creation) {
    if (creation.lpszName != nullptr && !IS_INTRESOURCE(creation.lpszName)) {
        text_ = InCase(creation.lpszName);
    }
    if (IsMultiLine() && Has(WS_VSCROLL)) {
        bar_.Enable(true);
    }
    UpdateBar();
}

void Edit::NotifyCommand(UINT code) const {
    SendMessageW(GetParent(window_), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(window_), code),
                 reinterpret_cast<LPARAM>(window_));
}

// ---- The text ---------------------------------------------------------------------------------

WideString Edit::InCase(WideString text) const {
    if (Has(ES_UPPERCASE) || Has(ES_LOWERCASE)) {
        std::ranges::transform(text, text.begin(),
                               [&](WCHAR c) { return Cased(c, Has(ES_UPPERCASE)); });
    }
    return text;
}

// First what is about to be shown, then that it has changed.
void Edit::Changed() {
    const HWND self = window_;
    Reveal();
    UpdateBar();
    Redraw();
    NotifyCommand(EN_UPDATE);
    if (IsWindow(self)) {
        NotifyCommand(EN_CHANGE);
    }
}

// Set by the program: a single line tells of it as if it had been typed.
void Edit::SetText(const WCHAR* text) {
    text_ = InCase(text == nullptr ? TEXT("") : text);
    anchor_ = caret_ = 0;
    top_ = 0;
    modified_ = canUndo_ = isTyping_ = false;
    if (!IsMultiLine()) {
        Changed();
        return;
    }
    UpdateBar();
    Redraw();
}

LRESULT Edit::GiveText(WPARAM room, LPARAM buffer) const {
    auto* out = reinterpret_cast<WCHAR*>(buffer);
    if (room == 0) {
        return 0;
    }
    const size_t count = text_.copy(out, room - 1);
    out[count] = 0;
    return static_cast<LRESULT>(count);
}

void Edit::Select(LONG_PTR start, LONG_PTR end) {
    if (start == -1) {
        anchor_ = caret_;  // no selection
    } else {
        const auto bound = [&](LONG_PTR at) {
            return at < 0 ? text_.size() : std::min(static_cast<size_t>(at), text_.size());
        };
        anchor_ = std::min(bound(start), bound(end));
        caret_ = std::max(bound(start), bound(end));
    }
    isTyping_ = false;
    Redraw();
}

void Edit::Remember(const WideString& text, Source source, bool canUndo) {
    const bool continues = isTyping_ && source == Source::kKeys && !HasSelection() && canUndo_ &&
                           caret_ == step_.at + step_.inserted;
    if (continues) {
        step_.inserted += text.size();
    } else {
        step_ = {SelectionStart(), text.size(), Selection()};
    }
    canUndo_ = canUndo;
    isTyping_ = source == Source::kKeys;
}

// Puts a text in the place of the selection, as far as the limit lets it.
void Edit::Replace(WideString text, Source source, bool canUndo) {
    const HWND self = window_;
    const size_t kept = text_.size() - (SelectionEnd() - SelectionStart());
    const size_t room = limit_ > kept ? limit_ - kept : 0;
    if (text.size() > room) {
        NotifyCommand(EN_MAXTEXT);
        if (!IsWindow(self) || (room == 0 && !HasSelection())) {
            return;
        }
        text.resize(room);
    }
    text = InCase(std::move(text));
    Remember(text, source, canUndo);
    const size_t start = SelectionStart();
    text_.replace(start, SelectionEnd() - start, text);
    anchor_ = caret_ = start + text.size();
    modified_ = true;
    Changed();
}

// The step back can itself be taken back.
void Edit::Undo() {
    if (!canUndo_ || IsReadOnly()) {
        return;
    }
    const Step back = {step_.at, step_.removed.size(), text_.substr(step_.at, step_.inserted)};
    text_.replace(step_.at, step_.inserted, step_.removed);
    anchor_ = back.at;
    caret_ = back.at + back.inserted;
    step_ = back;
    isTyping_ = false;
    modified_ = true;
    Changed();
}

void Edit::HandleClipboard(UINT message) {
    const bool copies = message == WM_COPY || message == WM_CUT;
    if (copies && HasSelection() && !Has(ES_PASSWORD)) {
        Clipboard() = Selection();
    }
    if (message == WM_COPY || IsReadOnly()) {
        return;
    }
    if (message == WM_PASTE) {
        const WideString& text = Clipboard();
        Replace(IsMultiLine() ? text : text.substr(0, text.find_first_of(TEXT("\r\n"))),
                Source::kOther);
    } else if (HasSelection() && (message == WM_CLEAR || !Has(ES_PASSWORD))) {
        Replace({}, Source::kOther);
    }
}

// ---- The keyboard -----------------------------------------------------------------------------

void Edit::Erase(size_t from, size_t to) {
    if (IsReadOnly()) {
        return;
    }
    if (!HasSelection()) {
        anchor_ = from;
        caret_ = to;
    }
    if (HasSelection()) {
        Replace({}, Source::kOther);
    }
}

void Edit::TypeCharacter(WCHAR character) {
    constexpr struct {
        WCHAR character;
        UINT message;
    } kControls[] = {{3, WM_COPY}, {22, WM_PASTE}, {24, WM_CUT}, {26, WM_UNDO}};
    for (const auto& [control, message] : kControls) {
        if (character == control) {
            SendMessageW(window_, message, 0, 0);
            return;
        }
    }
    if (character == '\b') {
        Erase(caret_ == 0 ? 0 : caret_ - 1, caret_);
        return;
    }
    const bool isBreak = character == '\r' || character == '\n';
    const bool isShown = character >= ' ' && character != 0x7F;
    const bool isRefused = Has(ES_NUMBER) && (character < '0' || character > '9');
    if (IsReadOnly() || isRefused ||
        !(isShown || (IsMultiLine() && (isBreak || character == '\t')))) {
        return;
    }
    Replace(isBreak ? WideString(TEXT("\r\n")) : WideString(1, character), Source::kKeys);
}

void Edit::MoveCaret(size_t to) {
    anchor_ = caret_ = std::min(to, text_.size());
    isTyping_ = false;
    Reveal();
    Redraw();
}

// Where the caret comes to so many lines farther down.
size_t Edit::Below(int lines) const {
    const std::vector<Line> all = Lines();
    const int from = static_cast<int>(LineOf(all, caret_));
    const int to = std::clamp(from + lines, 0, static_cast<int>(all.size()) - 1);
    const Line& line = all[static_cast<size_t>(from)];
    const LONG x = LeftOf(line) + WidthOf(line, caret_ - line.start);
    return to == from ? caret_ : AtX(all[static_cast<size_t>(to)], x);
}

// In a dialog several lines get every key, and give those of the dialog back.
bool Edit::HandleDialogKey(WPARAM key) {
    WCHAR parentClass[16] = {};
    GetClassNameW(GetParent(window_), parentClass, 16);
    if (!IsMultiLine() || !SameText(parentClass, TEXT("#32770"))) {
        return false;
    }
    if (key == VK_TAB) {
        SendMessageW(GetParent(window_), WM_NEXTDLGCTL, 0, 0);
    } else if (key == VK_ESCAPE) {
        PostMessageW(GetParent(window_), WM_CLOSE, 0, 0);
    }
    return key == VK_TAB || key == VK_ESCAPE;
}

bool Edit::HandleKey(WPARAM key) {
    const std::vector<Line> lines = Lines();
    const Line& line = lines[LineOf(lines, caret_)];
    const size_t before = HasSelection() ? SelectionStart() : caret_ - (caret_ == 0 ? 0u : 1u);
    const size_t after = HasSelection() ? SelectionEnd() : caret_ + 1;
    const bool isTall = IsMultiLine();
    const struct {
        WPARAM key;
        size_t to;
    } moves[] = {
        {VK_LEFT, before},
        {VK_RIGHT, after},
        {VK_UP, isTall ? Below(-1) : before},
        {VK_DOWN, isTall ? Below(1) : after},
        {VK_PRIOR, isTall ? Below(-Rows()) : caret_},
        {VK_NEXT, isTall ? Below(Rows()) : caret_},
        {VK_HOME, line.start},
        {VK_END, line.end},
    };
    for (const auto& move : moves) {
        if (move.key == key) {
            MoveCaret(move.to);
            return true;
        }
    }
    if (key == VK_DELETE) {
        Erase(caret_, std::min(caret_ + 1, text_.size()));
        return true;
    }
    return HandleDialogKey(key);
}

// ---- The mouse --------------------------------------------------------------------------------

void Edit::SelectWord() {
    const auto isBetween = [&](size_t at) { return text_[at] <= ' '; };
    anchor_ = caret_;
    while (anchor_ > 0 && !isBetween(anchor_ - 1)) {
        --anchor_;
    }
    while (caret_ < text_.size() && !isBetween(caret_)) {
        ++caret_;
    }
    Redraw();
}

bool Edit::HandleMouse(UINT message, LPARAM lParam) {
    const HWND self = window_;
    switch (message) {
        case WM_LBUTTONDOWN:
            dragging_ = true;
            SetCapture(self);
            MoveCaret(AtPoint(common::PointOf(lParam)));
            SetFocus(self);
            return true;
        case WM_LBUTTONDBLCLK:
            SelectWord();
            return true;
        case WM_MOUSEMOVE:
            if (dragging_) {
                caret_ = AtPoint(common::PointOf(lParam));
                Redraw();
            }
            return true;
        case WM_LBUTTONUP:
            if (std::exchange(dragging_, false)) {
                ReleaseCapture();
            }
            return true;
        case WM_CAPTURECHANGED:
            dragging_ = false;
            return true;
    }
    return false;
}

// ---- Lines ------------------------------------------------------------------------------------

// What a line shows: tabs take the place of a space, and a password does not show.
WideString Edit::Shown(const Line& line) const {
    WideString shown = text_.substr(line.start, line.end - line.start);
    if (Has(ES_PASSWORD) && password_ != 0) {
        return WideString(shown.size(), password_);
    }
    std::ranges::replace_if(
        shown, [](WCHAR c) { return c < ' '; }, ' ');
    return shown;
}

// Where a row that begins there breaks: behind the last space that leaves it narrow enough, or
// within a word that is wider than the row.
size_t Edit::EndOfRow(size_t start, size_t end, int width) const {
    const auto fits = [&](size_t to) { return TextSize(Shown({start, to})).cx <= width; };
    size_t space = start;
    for (size_t at = start + 1; at <= end; ++at) {
        if (text_[at - 1] == ' ') {
            space = at;  // it may itself be beyond the edge
        } else if (!fits(at)) {
            return space > start ? space : std::max(at - 1, start + 1);
        }
    }
    return end;
}

std::vector<Edit::Line> Edit::Lines() const {
    if (!IsMultiLine()) {
        return {{0, text_.size()}};
    }
    const bool wraps = !Has(ES_AUTOHSCROLL) && !Has(WS_HSCROLL);
    const RECT place = Place();
    const int width = std::max<int>(1, place.right - place.left);
    std::vector<Line> lines;
    for (size_t start = 0;;) {
        const size_t stop = std::min(text_.find(TEXT("\r\n"), start), text_.size());
        size_t row = start;
        do {
            const size_t end = wraps ? EndOfRow(row, stop, width) : stop;
            lines.push_back({row, end});
            row = end;
        } while (row < stop);
        if (stop == text_.size()) {
            return lines;
        }
        start = stop + 2;
    }
}

size_t Edit::LineOf(const std::vector<Line>& lines, size_t at) const {
    size_t line = 0;
    while (line + 1 < lines.size() && lines[line + 1].start <= at) {
        ++line;
    }
    return line;
}

RECT Edit::Place() const {
    RECT place = Client();
    InflateRect(&place, -kMargin, -kMargin);
    return place;
}

// A line that is wider than the control is shifted until the caret is seen.
LONG Edit::LeftOf(const Line& line) const {
    const RECT place = Place();
    const LONG spare = place.right - place.left - WidthOf(line, line.end - line.start);
    if (spare > 0) {
        return place.left + (Has(ES_RIGHT) ? spare : Has(ES_CENTER) ? spare / 2 : 0);
    }
    const bool hasCaret = caret_ >= line.start && caret_ <= line.end;
    const LONG caret = hasCaret ? WidthOf(line, caret_ - line.start) : 0;
    return place.left - std::max<LONG>(0, caret + 1 - (place.right - place.left));
}

size_t Edit::AtX(const Line& line, LONG x) const {
    const LONG left = LeftOf(line);
    size_t count = 0;
    while (line.start + count < line.end &&
           x >= left + (WidthOf(line, count) + WidthOf(line, count + 1)) / 2) {
        ++count;
    }
    return line.start + count;
}

size_t Edit::AtPoint(POINT point) const {
    const std::vector<Line> lines = Lines();
    const LONG row = top_ + (point.y - Place().top) / FontHeight();
    const size_t last = lines.size() - 1;
    return AtX(lines[std::min(last, static_cast<size_t>(std::max<LONG>(0, row)))], point.x);
}

void Edit::SetTop(int line) {
    const int count = static_cast<int>(Lines().size());
    const int top = std::clamp(line, 0, std::max(0, count - Rows()));
    if (std::exchange(top_, top) != top) {
        UpdateBar();
        Redraw();
    }
}

void Edit::Scroll(WORD code, int position) {
    const int to = code == SB_LINEUP          ? top_ - 1
                   : code == SB_LINEDOWN      ? top_ + 1
                   : code == SB_PAGEUP        ? top_ - Rows()
                   : code == SB_PAGEDOWN      ? top_ + Rows()
                   : code == SB_THUMBTRACK    ? position
                   : code == SB_THUMBPOSITION ? position
                   : code == SB_TOP           ? 0
                   : code == SB_BOTTOM        ? static_cast<int>(text_.size())
                                              : top_;
    SetTop(to);
}

void Edit::Reveal() {
    if (IsMultiLine()) {
        const int line = static_cast<int>(LineOf(Lines(), caret_));
        SetTop(std::clamp(top_, line - Rows() + 1, line));
    }
}

void Edit::UpdateBar() {
    if (bar_.IsEnabled()) {
        bar_.Set({sizeof(SCROLLINFO), SIF_ALL, 0, static_cast<int>(Lines().size()) - 1,
                  static_cast<UINT>(Rows()), top_, 0},
                 true);
    }
}

// ---- Painting ---------------------------------------------------------------------------------

HBRUSH Edit::Background(HDC context) const {
    const UINT message =
        IsReadOnly() || !IsWindowEnabled(window_) ? WM_CTLCOLORSTATIC : WM_CTLCOLOREDIT;
    return reinterpret_cast<HBRUSH>(SendMessageW(GetParent(window_), message,
                                                 reinterpret_cast<WPARAM>(context),
                                                 reinterpret_cast<LPARAM>(window_)));
}

void Edit::PaintLine(HDC context, const Line& line, LONG y) const {
    const WideString shown = Shown(line);
    const LONG left = LeftOf(line);
    const auto xOf = [&](size_t at) { return left + WidthOf(line, at - line.start); };
    TextOutW(context, left, y, shown.c_str(), static_cast<int>(shown.size()));
    const size_t start = std::clamp(SelectionStart(), line.start, line.end);
    const size_t end = std::clamp(SelectionEnd(), line.start, line.end);
    if (start < end && (focused_ || Has(ES_NOHIDESEL))) {
        const COLORREF color = SetTextColor(context, GetSysColor(COLOR_HIGHLIGHTTEXT));
        RECT mark = {xOf(start), y, xOf(end), y + FontHeight()};
        FillRect(context, &mark, GetSysColorBrush(COLOR_HIGHLIGHT));
        TextOutW(context, mark.left, y, shown.c_str() + (start - line.start),
                 static_cast<int>(end - start));
        SetTextColor(context, color);
    }
}

void Edit::Paint(HDC context) {
    const RECT area = Client();
    HBRUSH background = Background(context);
    FillRect(context, &area, background);
    SetBkMode(context, TRANSPARENT);
    if (!IsWindowEnabled(window_)) {
        SetTextColor(context, GetSysColor(COLOR_GRAYTEXT));
    }
    const RECT place = Place();
    IntersectClipRect(context, place.left, place.top, place.right, place.bottom);
    const std::vector<Line> lines = Lines();
    const LONG height = FontHeight();
    LONG y = place.top;
    for (size_t i = static_cast<size_t>(top_); i < lines.size() && y < place.bottom; ++i) {
        PaintLine(context, lines[i], y);
        y += height;
    }
    const int row = static_cast<int>(LineOf(lines, caret_)) - top_;
    if (focused_ && !HasSelection() && row >= 0) {
        const Line& line = lines[static_cast<size_t>(row + top_)];
        const LONG x = LeftOf(line) + WidthOf(line, caret_ - line.start);
        RECT bar = {x, place.top + row * height, x + 1, place.top + (row + 1) * height};
        FillRect(context, &bar, GetSysColorBrush(COLOR_WINDOWTEXT));
    }
}

// ---- Messages ---------------------------------------------------------------------------------

LRESULT Edit::HandleLines(UINT message, WPARAM wParam, LPARAM lParam) const {
    const std::vector<Line> lines = Lines();
    const auto atCaret = [&](WPARAM given, size_t caret) {
        return static_cast<LONG>(given) == -1 ? caret : static_cast<size_t>(given);
    };
    switch (message) {
        case EM_GETLINECOUNT:
            return static_cast<LRESULT>(lines.size());
        case EM_LINEINDEX: {
            const size_t line = atCaret(wParam, LineOf(lines, caret_));
            return line < lines.size() ? static_cast<LRESULT>(lines[line].start) : -1;
        }
        case EM_LINELENGTH: {
            const Line& line = lines[LineOf(lines, atCaret(wParam, caret_))];
            return static_cast<LRESULT>(line.end - line.start);
        }
        default: {  // EM_GETLINE: the buffer begins with its size, and the line is not ended
            auto* out = reinterpret_cast<WCHAR*>(lParam);
            const size_t index = IsMultiLine() ? wParam : 0;
            if (index >= lines.size()) {
                return 0;
            }
            const Line& line = lines[index];
            const size_t room = static_cast<WORD>(out[0]);
            return static_cast<LRESULT>(
                text_.copy(out, std::min(room, line.end - line.start), line.start));
        }
    }
}

LRESULT Edit::HandleEdit(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case EM_GETSEL:
            if (wParam != 0) {
                *reinterpret_cast<DWORD*>(wParam) = static_cast<DWORD>(SelectionStart());
            }
            if (lParam != 0) {
                *reinterpret_cast<DWORD*>(lParam) = static_cast<DWORD>(SelectionEnd());
            }
            return SelectionEnd() > 0xFFFF ? -1 : MAKELONG(SelectionStart(), SelectionEnd());
        case EM_SETSEL:
            Select(static_cast<LONG>(wParam), static_cast<LONG>(lParam));
            return 1;
        case EM_GETRECT:
            *reinterpret_cast<RECT*>(lParam) = Place();
            return 1;
        case EM_GETMODIFY:
            return modified_;
        case EM_SETMODIFY:
            modified_ = wParam != 0;
            return 0;
        case EM_GETLINECOUNT:
        case EM_LINELENGTH:
        case EM_LINEINDEX:
        case EM_GETLINE:
            return HandleLines(message, wParam, lParam);
        case EM_REPLACESEL:
            Replace(reinterpret_cast<const WCHAR*>(lParam), Source::kProgram, wParam != 0);
            return 1;
        case EM_SETLIMITTEXT:
            limit_ = wParam != 0 ? wParam : IsMultiLine() ? kLinesLimit : kLineLimit;
            return 0;
        case EM_GETLIMITTEXT:
            return static_cast<LRESULT>(limit_);
        case EM_CANUNDO:
            return canUndo_;
        case EM_UNDO:
            Undo();
            return 1;
        case EM_EMPTYUNDOBUFFER:
            canUndo_ = false;
            return 0;
        case EM_SETREADONLY: {
            const LONG style = GetWindowLongW(window_, GWL_STYLE) & ~ES_READONLY;
            SetWindowLongW(window_, GWL_STYLE, wParam != 0 ? style | ES_READONLY : style);
            Redraw();
            return 1;
        }
        case EM_SCROLLCARET:
            Reveal();
            return 1;
        case EM_SETPASSWORDCHAR:
            password_ = static_cast<WCHAR>(wParam);
            SetWindowLongW(window_, GWL_STYLE,
                           wParam != 0 ? GetWindowLongW(window_, GWL_STYLE) | ES_PASSWORD
                                       : GetWindowLongW(window_, GWL_STYLE) & ~ES_PASSWORD);
            Redraw();
            return 1;
        default:
            Unsupported("message %#x to an Edit", message);
    }
}

LRESULT Edit::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    constexpr UINT kFirst = EM_GETSEL;
    constexpr UINT kLast = 0xDF;
    LRESULT result;
    if (bar_.Handle(message, wParam, lParam, &result)) {
        return result;
    }
    if (message >= kFirst && message <= kLast) {
        return HandleEdit(message, wParam, lParam);
    }
    if (HandleMouse(message, lParam)) {
        return 0;
    }
    switch (message) {
        case WM_NCCREATE:
            common::CheckStyle("Edit", Style() & 0xFFFF, kKnownStyles);
            break;
        case WM_CREATE:
            Create(*reinterpret_cast<const CREATESTRUCTW*>(lParam));
            return 0;
        case WM_SIZE:
            UpdateBar();
            Redraw();
            return 0;
        case WM_VSCROLL:
            Scroll(LOWORD(wParam), static_cast<SHORT>(HIWORD(wParam)));
            return 0;
        case WM_SETTEXT:
            SetText(reinterpret_cast<const WCHAR*>(lParam));
            return TRUE;
        case WM_GETTEXT:
            return GiveText(wParam, lParam);
        case WM_GETTEXTLENGTH:
            return static_cast<LRESULT>(text_.size());
        case WM_GETDLGCODE: {
            const LRESULT code = DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS;
            return IsMultiLine() ? code | DLGC_WANTALLKEYS : code;
        }
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            focused_ = message == WM_SETFOCUS;
            Redraw();
            NotifyCommand(focused_ ? EN_SETFOCUS : EN_KILLFOCUS);
            return 0;
        case WM_CHAR:
            TypeCharacter(static_cast<WCHAR>(wParam));
            return 0;
        case WM_KEYDOWN:
            HandleKey(wParam);
            return 0;
        case WM_CLEAR:
        case WM_COPY:
        case WM_CUT:
        case WM_PASTE:
            HandleClipboard(message);
            return 0;
        case WM_UNDO:
            Undo();
            return 1;
    }
    return Control::Handle(message, wParam, lParam);
}

}  // namespace

void RegisterEdit() {
    common::Register(TEXT("Edit"), common::Procedure<Edit>, CS_DBLCLKS | CS_PARENTDC);
}

}  // namespace host
