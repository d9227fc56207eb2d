// The thread's messages: sent, posted, painting and timers, in a virtual time that goes on only
// while the program waits.
#include "windows/windows.h"

#include <algorithm>
#include <deque>
#include <optional>

namespace {

constexpr DWORD kStartTime = 1000000;
// A loop that only timers keep going this long will not end by itself.
constexpr unsigned kTimersInVain = 100000;

struct Timer {
    HWND window;
    UINT_PTR id;
    UINT period;
    TIMERPROC procedure;
    std::uint64_t due;
};

std::deque<MSG> posted;
std::optional<int> quitCode;
std::vector<Timer> timers;
std::uint64_t now = kStartTime;
UINT_PTR nextTimer = 0x7000;
unsigned timersInVain = 0;

struct Filter {
    HWND window;
    UINT first;
    UINT last;

    bool Takes(UINT message) const {
        return (first == 0 && last == 0) || (message >= first && message <= last);
    }
    bool Takes(HWND target, UINT message) const {
        return Takes(message) && (window == nullptr || target == window || IsChild(window, target));
    }
};

MSG MessageFor(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return {window, message, wParam, lParam, static_cast<DWORD>(now), {0, 0}};
}

bool TakePosted(const Filter& filter, bool remove, MSG* message) {
    const auto it = std::find_if(posted.begin(), posted.end(), [&](const MSG& one) {
        return filter.Takes(one.hwnd, one.message);
    });
    if (it == posted.end()) {
        return false;
    }
    *message = *it;
    if (remove) {
        posted.erase(it);
    }
    return true;
}

// The timer that is due first, of those that the filter takes.
Timer* NextTimer(const Filter& filter) {
    Timer* next = nullptr;
    for (Timer& timer : timers) {
        if (filter.Takes(timer.window, WM_TIMER) && (next == nullptr || timer.due < next->due)) {
            next = &timer;
        }
    }
    return next;
}

bool TakeTimer(const Filter& filter, bool wait, bool remove, MSG* message) {
    Timer* timer = NextTimer(filter);
    if (timer == nullptr || (!wait && timer->due > now)) {
        return false;
    }
    now = std::max(now, timer->due);
    *message =
        MessageFor(timer->window, WM_TIMER, timer->id, reinterpret_cast<LPARAM>(timer->procedure));
    if (remove) {
        timer->due = now + timer->period;
    }
    return true;
}

bool Take(const Filter& filter, bool wait, bool remove, MSG* message) {
    if (TakePosted(filter, remove, message)) {
        timersInVain = 0;
        return true;
    }
    if (quitCode && filter.window == nullptr) {
        *message = MessageFor(nullptr, WM_QUIT, static_cast<WPARAM>(*quitCode), 0);
        if (remove) {
            quitCode.reset();
        }
        return true;
    }
    const HWND toPaint = filter.Takes(WM_PAINT) ? host::NextToPaint(filter.window) : nullptr;
    if (toPaint != nullptr) {
        *message = MessageFor(toPaint, WM_PAINT, 0, 0);
        return true;
    }
    if (wait && host::RunWaitingProgram()) {
        return Take(filter, wait, remove, message);
    }
    return TakeTimer(filter, wait, remove, message);
}

// The character that a key stands for without shift keys, or 0.
WPARAM CharacterOf(WPARAM key) {
    const bool asItself = (key >= '0' && key <= '9') || key == VK_SPACE || key == VK_BACK ||
                          key == VK_RETURN || key == VK_TAB || key == VK_ESCAPE;
    if (asItself) {
        return key;
    }
    return key >= 'A' && key <= 'Z' ? key - 'A' + 'a' : 0;
}

}  // namespace

namespace host {

LRESULT Send(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    const WindowPointer window = FindWindowObject(handle);
    return window == nullptr ? 0 : window->procedure(handle, message, wParam, lParam);
}

void ForgetMessages(HWND window) {
    std::erase_if(posted, [&](const MSG& message) { return message.hwnd == window; });
    std::erase_if(timers, [&](const Timer& timer) { return timer.window == window; });
}

void ResetMessages() {
    posted.clear();
    timers.clear();
    quitCode.reset();
    now = kStartTime;
    timersInVain = 0;
}

}  // namespace host

LRESULT WINAPI CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam,
                               LPARAM lParam) {
    return procedure == nullptr ? 0 : procedure(window, message, wParam, lParam);
}

LRESULT WINAPI SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (window == reinterpret_cast<HWND>(0xFFFF)) {
        host::Unsupported("SendMessageW to every window");
    }
    return host::Send(window, message, wParam, lParam);
}

BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (window != nullptr && !host::IsLive(window)) {
        return host::Fail(ERROR_INVALID_WINDOW_HANDLE);
    }
    if (message == WM_QUIT && window == nullptr) {
        PostQuitMessage(static_cast<int>(wParam));
        return TRUE;
    }
    posted.push_back(MessageFor(window, message, wParam, lParam));
    return TRUE;
}

BOOL WINAPI GetMessageW(LPMSG message, HWND window, UINT first, UINT last) {
    const Filter filter = {window, first, last};
    if (!Take(filter, true, true, message)) {
        host::Unsupported("GetMessageW waits for a message that never comes");
    }
    if (message->message == WM_TIMER && ++timersInVain == kTimersInVain) {
        host::Unsupported("GetMessageW waits for a message, and only timers come");
    }
    return message->message != WM_QUIT;
}

BOOL WINAPI PeekMessageW(LPMSG message, HWND window, UINT first, UINT last, UINT remove) {
    if ((remove & ~UINT{PM_REMOVE}) != 0) {
        host::Unsupported("PeekMessageW with flags %#x", remove);
    }
    return Take({window, first, last}, false, (remove & PM_REMOVE) != 0, message);
}

BOOL WINAPI TranslateMessage(const MSG* message) {
    const bool isKey = message->message == WM_KEYDOWN || message->message == WM_SYSKEYDOWN;
    const WPARAM character = isKey ? CharacterOf(message->wParam) : 0;
    if (character != 0) {
        posted.push_front(MessageFor(message->hwnd,
                                     message->message == WM_KEYDOWN ? WM_CHAR : WM_SYSCHAR,
                                     character, message->lParam));
    }
    return isKey || message->message == WM_KEYUP || message->message == WM_SYSKEYUP;
}

LRESULT WINAPI DispatchMessageW(const MSG* message) {
    if (message->message == WM_TIMER && message->lParam != 0) {
        reinterpret_cast<TIMERPROC>(message->lParam)(message->hwnd, WM_TIMER, message->wParam,
                                                     static_cast<DWORD>(now));
        return 0;
    }
    return message->hwnd == nullptr
               ? 0
               : host::Send(message->hwnd, message->message, message->wParam, message->lParam);
}

void WINAPI PostQuitMessage(int code) {
    quitCode = code;
}

SHORT WINAPI GetKeyState(int) {
    return 0;
}

UINT_PTR WINAPI SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure) {
    if (window != nullptr && !host::IsLive(window)) {
        return host::Fail(ERROR_INVALID_WINDOW_HANDLE), 0u;
    }
    const bool known = std::any_of(timers.begin(), timers.end(), [&](const Timer& timer) {
        return timer.window == window && timer.id == id;
    });
    if (window == nullptr && !known) {
        id = nextTimer++;
    }
    KillTimer(window, id);
    const UINT period = std::max(milliseconds, 10u);
    timers.push_back({window, id, period, procedure, now + period});
    return window == nullptr || id != 0 ? id : 1;
}

BOOL WINAPI KillTimer(HWND window, UINT_PTR id) {
    std::erase_if(posted, [&](const MSG& message) {
        return message.hwnd == window && message.message == WM_TIMER && message.wParam == id;
    });
    return std::erase_if(timers, [&](const Timer& timer) {
               return timer.window == window && timer.id == id;
           }) != 0;
}
