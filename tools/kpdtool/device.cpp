// kpdtool device: what the printer answers through the device I/O library, as the pages see it.
#include "arguments.h"
#include "commands.h"
#include "companions/device_io.h"
#include "connected_sample.h"
#include "core/card_terms.h"
#include "core/driver_files.h"
#include "hidden_window.h"
#include "text_table.h"
#include "tool_error.h"
#include "tools/kpdtool/records/record_report.h"
#include "wide_text.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>

namespace kpdtool {
namespace {

struct Options {
    std::string printer;
    std::string device;
    unsigned seconds = 10;
    bool json = false;
};

// ---- The library --------------------------------------------------------------------------------

/// What the library offers. Without it nothing is asked, so that no message is shown.
class DeviceLibrary {
  public:
    DeviceLibrary() : library_(LoadDriverLibrary(kDeviceLibrary)) {
        if (library_ == nullptr) {
            WCHAR path[kDriverPathLength];
            DriverFilePath(path, kDeviceLibrary);
            throw ToolError(ToUtf8(path) + ": cannot be loaded");
        }
    }
    ~DeviceLibrary() { FreeLibrary(library_); }
    DeviceLibrary(const DeviceLibrary&) = delete;
    DeviceLibrary& operator=(const DeviceLibrary&) = delete;

    bool Has(const char* operation) const { return GetProcAddress(library_, operation) != nullptr; }

  private:
    HMODULE library_;
};

// ---- Queries ------------------------------------------------------------------------------------

/// A window that asks and waits for the answer.
class Asker {
  public:
    Asker() = default;
    Asker(const Asker&) = delete;
    Asker& operator=(const Asker&) = delete;

    /// The answer's bytes; none when there is none in that time.
    std::optional<std::vector<BYTE>> Ask(DeviceQuery query, const WCHAR* printer,
                                         unsigned seconds) {
        answer_.reset();
        query_ = query;
        SetTimer(window_.get(), kTimeOver, seconds * 1000, nullptr);
        timeIsOver_ = false;
        AskDevice(query, window_.get(), printer);
        MSG message;
        while (!answer_ && !timeIsOver_ && GetMessageW(&message, nullptr, 0, 0)) {
            DispatchMessageW(&message);
        }
        KillTimer(window_.get(), kTimeOver);
        return answer_;
    }

  private:
    static constexpr UINT_PTR kTimeOver = 1;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        auto* asker = reinterpret_cast<Asker*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (message == WM_TIMER) {
            asker->timeIsOver_ = true;
            return 0;
        }
        if (message == WM_COPYDATA) {
            asker->Take(*reinterpret_cast<const COPYDATASTRUCT*>(lParam));
            return FALSE;
        }
        return DefWindowProcW(window, message, wParam, lParam);
    }
    void Take(const COPYDATASTRUCT& data) {
        if (data.dwData == static_cast<ULONG_PTR>(query_) && !timeIsOver_) {
            const auto* bytes = static_cast<const BYTE*>(data.lpData);
            answer_.emplace(bytes, bytes + (bytes == nullptr ? 0 : data.cbData));
            // A loop waits for posted messages, and this one was sent.
            PostMessageW(window_.get(), WM_APP, 0, 0);
        }
    }

    HiddenWindow window_{TEXT("KpdtoolDevice"), Procedure, this};
    DeviceQuery query_ = {};
    bool timeIsOver_ = false;
    std::optional<std::vector<BYTE>> answer_;
};

// Reads an answer as the pages do.
template <typename Reader>
auto Read(DeviceQuery query, std::vector<BYTE>& bytes, Reader reader) {
    COPYDATASTRUCT answer = {};
    answer.dwData = static_cast<ULONG_PTR>(query);
    answer.cbData = static_cast<DWORD>(bytes.size());
    answer.lpData = bytes.empty() ? nullptr : bytes.data();
    return reader(answer);
}

// ---- The calibration table ----------------------------------------------------------------------

/// What one value of one card thickness is.
struct CalibrationEntry {
    const char* card;
    const char* value;
    int offset;
    int current;
    int byDefault;
    int limit;
    bool inRange;
};

struct CalibrationColumn {
    const char* name;
    const CalibratedValue& value;
};
constexpr CalibrationColumn kColumns[] = {
    {"A", kCalibratedA}, {"B", kCalibratedB}, {"C", kCalibratedC}};

constexpr const char* kThicknesses[] = {"0.3 mm", "0.5 mm", "0.8 mm", "1.0 mm"};

std::vector<CalibrationEntry> EntriesOf(const CalibrationTable& calibration) {
    std::vector<CalibrationEntry> entries;
    for (size_t i = 0; i < calibration.size(); ++i) {
        const CalibrationRow& row = calibration[i];
        for (const auto& [name, value] : kColumns) {
            entries.push_back({kThicknesses[i], name, OffsetOf(row, value),
                               row.Current.*value.Value, row.Default.*value.Value, value.Limit,
                               IsWithinLimit(row, value)});
        }
    }
    return entries;
}

Json EntriesJson(const CalibrationTable& calibration) {
    Json rows = Json::array();
    for (const CalibrationEntry& entry : EntriesOf(calibration)) {
        rows.push_back({{"card", entry.card},
                        {"value", entry.value},
                        {"offset", entry.offset},
                        {"current", entry.current},
                        {"default", entry.byDefault},
                        {"limit", entry.limit},
                        {"inRange", entry.inRange}});
    }
    return rows;
}

// ---- What is printed ----------------------------------------------------------------------------

/// A line of the report: what it is about, for people and for programs, and what is known.
struct Finding {
    const char* name;
    const char* key;
    std::string text;
    Json json;
};

constexpr const char* kLacking = "the library cannot tell";
constexpr const char* kNoAnswer = "no answer";
constexpr const char* kBadAnswer = "an answer that is none";

class Report {
  public:
    explicit Report(const Options& options)
        : options_(options), printer_(FromUtf8(options.printer)) {}

    std::vector<Finding> Findings() {
        return {Firmware(), Ribbon(), Motors(), Encoder(), Film(0), Film(1), Calibration()};
    }
    /// None without a good answer; then `problem` tells why.
    std::optional<CalibrationTable> Table(std::string& problem) {
        return Ask(DeviceQuery::kCalibration, ReadCalibrationAnswer, problem);
    }

  private:
    template <typename Reader>
    auto Ask(DeviceQuery query, Reader reader, std::string& problem)
        -> decltype(reader(COPYDATASTRUCT())) {
        problem = kLacking;
        if (!library_.Has("DrvUI_GetDeviceInfo")) {
            return {};
        }
        bytes_ = asker_.Ask(query, printer_.c_str(), options_.seconds);
        problem = bytes_ ? kBadAnswer : kNoAnswer;
        return bytes_ ? Read(query, *bytes_, reader) : decltype(reader(COPYDATASTRUCT())){};
    }

    Finding Firmware() {
        Finding finding = {"firmware", "firmware", "", nullptr};
        if (const auto version =
                Ask(DeviceQuery::kFirmwareVersion, ReadFirmwareAnswer, finding.text)) {
            finding.text = ToUtf8(*version);
            finding.json = finding.text;
        }
        return finding;
    }
    Finding Ribbon() {
        Finding finding = {"ribbon", "ribbon", kLacking, nullptr};
        if (library_.Has("QueryRibbonInfo")) {
            const RibbonStatus status = QueryRibbonStatus(printer_.c_str());
            const std::string name = ToUtf8(RibbonName(RibbonOfPrinter(status.Code)));
            finding.text = (name.empty() ? "unknown" : name) + ", code " +
                           std::to_string(status.Code) + ", " + std::to_string(status.Remaining) +
                           " left";
            finding.json = {{"name", name}, {"code", status.Code}, {"remaining", status.Remaining}};
        }
        return finding;
    }
    Finding Motors() {
        Finding finding = {"motor speeds", "motors", kLacking, nullptr};
        if (library_.Has("FineAdjustMotorParameters")) {
            const MotorSpeeds speeds = ReadMotorSpeeds(printer_.c_str());
            finding.text = std::to_string(speeds.First) + ", " + std::to_string(speeds.Second);
            finding.json = {speeds.First, speeds.Second};
        }
        return finding;
    }
    Finding Encoder() {
        Finding finding = {"magnetic encoder", "encoder", "", nullptr};
        if (const auto has = Ask(DeviceQuery::kMagneticEncoder, ReadEncoderAnswer, finding.text)) {
            finding.text = *has ? "yes" : "no";
            finding.json = *has;
        }
        return finding;
    }
    Finding Film(BYTE film) {
        constexpr const char* kNames[] = {"laminator, overlay", "laminator, patch"};
        constexpr const char* kKeys[] = {"laminationOverlay", "laminationPatch"};
        Finding finding = {kNames[film], kKeys[film], kLacking, nullptr};
        if (!library_.Has("GetLaminationParameters")) {
            return finding;
        }
        LaminationRecord record;
        if (ReadLaminationParameters(printer_.c_str(), film, record) == 0) {
            finding.text = kNoAnswer;
            return finding;
        }
        finding.text =
            std::to_string(record.Temperature) + " degrees, dwell time " +
            std::to_string(record.DwellTime) + ", La " + std::to_string(record.LaPosition) +
            " of " + std::to_string(record.LaReference) + ", Lb " +
            std::to_string(record.LbPosition) + " of " + std::to_string(record.LbReference);
        finding.json = {{"temperature", record.Temperature}, {"dwellTime", record.DwellTime},
                        {"la", record.LaPosition},           {"laReference", record.LaReference},
                        {"lb", record.LbPosition},           {"lbReference", record.LbReference}};
        return finding;
    }
    Finding Calibration() {
        Finding finding = {"calibration", "calibration", "", nullptr};
        if (const auto table = Table(finding.text)) {
            finding.text = "received; kpdtool device calibration shows it";
            finding.json = EntriesJson(*table);
        }
        return finding;
    }

    const Options& options_;
    const std::basic_string<WCHAR> printer_;
    DeviceLibrary library_;
    Asker asker_;
    std::optional<std::vector<BYTE>> bytes_;  // of the last answer, which what is read may point to
};

int Show(const Options& options, std::ostream& out) {
    const ConnectedDevice device(options.device);
    const std::vector<Finding> findings = Report(options).Findings();
    if (options.json) {
        Json json = {{"printer", options.printer}};
        for (const Finding& finding : findings) {
            json[finding.key] = finding.json;
        }
        PrintJson(out, json);
        return 0;
    }
    TextTable table;
    table.Heading(options.printer);
    for (const Finding& finding : findings) {
        table.Row({finding.name, finding.text});
    }
    table.Print(out);
    return 0;
}

int ShowCalibration(const Options& options, std::ostream& out) {
    const ConnectedDevice device(options.device);
    std::string problem;
    const std::optional<CalibrationTable> calibration = Report(options).Table(problem);
    if (!calibration) {
        throw ToolError(options.printer + ": " + problem);
    }
    const std::vector<CalibrationEntry> entries = EntriesOf(*calibration);
    if (options.json) {
        PrintJson(out, {{"printer", options.printer}, {"values", EntriesJson(*calibration)}});
    } else {
        TextTable table;
        table.Row({"card", "value", "offset", "current", "default", "limit", ""});
        for (const CalibrationEntry& entry : entries) {
            table.Row({entry.card, entry.value, std::to_string(entry.offset),
                       std::to_string(entry.current), std::to_string(entry.byDefault),
                       std::to_string(entry.limit), entry.inRange ? "" : "out of range"});
        }
        table.Print(out);
    }
    return std::ranges::all_of(entries, &CalibrationEntry::inRange) ? 0 : 1;
}

}  // namespace

Run DeclareDevice(CLI::App& command) {
    command.require_subcommand(1);
    const auto options = std::make_shared<Options>();
    const auto add = [&](const char* name, const char* description) {
        CLI::App* added = command.add_subcommand(name, description);
        AddJson(*added, options->json);
        added->add_option("PRINTER", options->printer, "The printer's name")->required();
        AddDevice(*added, options->device);
        added->add_option("--wait", options->seconds, "Seconds to wait for each of its answers")
            ->capture_default_str();
        return added;
    };
    const CLI::App* show = add("show", "What the printer answers to every query");
    add("calibration", "The calibration table, checked; exit status 1 for a value out of range");
    return [=](std::ostream& out, std::ostream&) {
        return show->parsed() ? Show(*options, out) : ShowCalibration(*options, out);
    };
}

}  // namespace kpdtool
