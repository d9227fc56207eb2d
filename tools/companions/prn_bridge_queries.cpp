// A sample of the device I/O library, PrnBridge.dll: a printer kept in a file of the driver
// directory, SamplePrinter.txt, for computers without a card printer. What a caller does against
// the contract it notes there. Without the file no printer is connected.
//
//   printer     name of the only printer that answers; without it every one does
//   firmware    version
//   ribbon      the printer's code of the ribbon, and the prints left on it
//   motors      two speeds
//   encoder     1 with a magnetic encoder
//   laminator   1 with a laminator
//   film 0, 1   temperature, dwell time, La and Lb, their references
//   calibration 0 .. 3   A, B, C and the printer's own 16 bits; the defaults of the four; the other
//               bytes of the row
//   reports     maintenance reports written
//   delay       milliseconds until a query is answered
//   fault       silent, short or wrong: what it answers; "no calls": an older library
#include "printer.h"
#include "tools/kpdtool/wide_text.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

struct Query {
    int number = 0;
    HWND window = nullptr;
    WCHAR printer[260] = {};
};

// Of "-T1 -W65538 -P"Badge room"", to the letter.
bool ParseQuery(const char* text, Query& query) {
    char* end = nullptr;
    if (std::strncmp(text, "-T", 2) != 0) {
        return false;
    }
    query.number = static_cast<int>(std::strtol(text + 2, &end, 10));
    if (std::strncmp(end, " -W", 3) != 0) {
        return false;
    }
    // A window handle has 32 bits that count, and was written as a signed number of them.
    query.window = reinterpret_cast<HWND>(static_cast<LONG_PTR>(std::strtol(end + 3, &end, 10)));
    const size_t length = std::strlen(end);
    if (std::strncmp(end, " -P\"", 4) != 0 || length < 5 || end[length - 1] != '"') {
        return false;
    }
    const std::string name(end + 4, length - 5);
    MultiByteToWideChar(CP_ACP, 0, name.c_str(), -1, query.printer, 260);
    return true;
}

// Lets time pass as a process does that others do not wait for.
void Wait(UINT milliseconds) {
    const UINT_PTR timer = SetTimer(nullptr, 0, milliseconds, nullptr);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0)) {
        if (message.message == WM_TIMER && message.hwnd == nullptr && message.wParam == timer) {
            break;
        }
        DispatchMessageW(&message);
    }
    KillTimer(nullptr, timer);
}

std::vector<BYTE> FirmwareAnswer(const Printer& printer) {
    const std::string version = printer.Text("firmware");
    const std::basic_string<WCHAR> text = kpdtool::FromUtf8(version);
    const auto* bytes = reinterpret_cast<const BYTE*>(text.c_str());
    std::vector<BYTE> answer(bytes, bytes + (text.size() + 1) * sizeof(WCHAR));
    if (printer.IsShort()) {
        answer.resize(3);
    }
    return answer;
}

std::vector<BYTE> CalibrationAnswer(const Printer& printer) {
    std::vector<BYTE> answer(2 + kTableSize);
    answer[1] = printer.IsWrong() ? 5 : 4;
    ReadTable(printer, answer.data() + 2);
    if (printer.IsShort()) {
        answer.pop_back();
    }
    return answer;
}

std::vector<BYTE> EncoderAnswer(const Printer& printer) {
    if (printer.IsShort()) {
        return {};
    }
    return {static_cast<BYTE>(printer.IsWrong() ? 2 : printer.Number("encoder")), 0, 0};
}

struct QueryRow {
    int number;
    std::vector<BYTE> (*answer)(const Printer& printer);
};
constexpr QueryRow kQueries[] = {
    {1, FirmwareAnswer},
    {5, CalibrationAnswer},
    {6, EncoderAnswer},
};

// The answer to a query and how long it takes; none when the printer gives none.
std::vector<BYTE> AnswerTo(const char* commandLine, Query& query, COPYDATASTRUCT& data,
                           int& delay) {
    const bool understood = ParseQuery(commandLine, query);
    Printer printer(query.printer);
    const auto* row = std::find_if(std::begin(kQueries), std::end(kQueries),
                                   [&](const QueryRow& one) { return one.number == query.number; });
    if (!printer.Require(understood, "a query not in its form") ||
        !printer.Require(row != std::end(kQueries), "an unknown query") || !printer.Answers()) {
        query.window = nullptr;
        return {};
    }
    delay = printer.Number("delay");
    // A wrong firmware version answers a query that nobody asked.
    data.dwData =
        static_cast<ULONG_PTR>(printer.IsWrong() && query.number == 1 ? 99 : query.number);
    return row->answer(printer);
}

}  // namespace

/// Runs in a process of its own, by rundll32.exe.
OPERATION void CALLBACK DrvUI_GetDeviceInfo(HWND, HINSTANCE, LPSTR commandLine, int) {
    Query query;
    COPYDATASTRUCT data = {};
    int delay = 0;
    std::vector<BYTE> answer = AnswerTo(commandLine, query, data, delay);
    if (delay > 0) {
        Wait(static_cast<UINT>(delay));
    }
    data.cbData = static_cast<DWORD>(answer.size());
    data.lpData = answer.empty() ? nullptr : answer.data();
    if (query.window != nullptr) {
        SendMessageW(query.window, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
    }
}
