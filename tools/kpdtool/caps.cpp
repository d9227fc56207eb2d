// kpdtool caps: what DrvDeviceCapabilities answers.
#include "arguments.h"
#include "commands.h"
#include "core/driver_ui_contract.h"
#include "temporary_printer.h"
#include "text_table.h"
#include "tools/kpdtool/records/record_report.h"
#include "wide_text.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>

namespace kpdtool {
namespace {

struct Options {
    PrinterArguments printer;
    bool json = false;
};

// How an answer reads, and what the driver writes into the output buffer.
enum class Shape { kNumber, kHex, kExtent, kWords, kPairs, kNames24, kNames64 };

struct Capability {
    WORD index;
    const char* name;
    Shape shape = Shape::kNumber;
};

constexpr Capability kCapabilities[] = {
    {1, "DC_FIELDS", Shape::kHex},
    {2, "DC_PAPERS", Shape::kWords},
    {3, "DC_PAPERSIZE", Shape::kPairs},
    {4, "DC_MINEXTENT", Shape::kExtent},
    {5, "DC_MAXEXTENT", Shape::kExtent},
    {6, "DC_BINS", Shape::kWords},
    {7, "DC_DUPLEX"},
    {8, "DC_SIZE"},
    {9, "DC_EXTRA"},
    {10, "DC_VERSION", Shape::kHex},
    {11, "DC_DRIVER", Shape::kHex},
    {12, "DC_BINNAMES", Shape::kNames24},
    {13, "DC_ENUMRESOLUTIONS", Shape::kPairs},
    {14, "DC_FILEDEPENDENCIES", Shape::kNames64},
    {15, "DC_TRUETYPE"},
    {16, "DC_PAPERNAMES", Shape::kNames64},
    {17, "DC_ORIENTATION"},
    {18, "DC_COPIES"},
    {19, "DC_BINADJUST"},
    {20, "DC_EMF_COMPLIANT"},
    {21, "DC_DATATYPE_PRODUCED"},
    {22, "DC_COLLATE"},
    {23, "DC_MANUFACTURER"},
    {24, "DC_MODEL"},
    {25, "DC_PERSONALITY"},
    {26, "DC_PRINTRATE"},
    {27, "DC_PRINTRATEUNIT"},
    {28, "DC_PRINTERMEM"},
    {29, "DC_MEDIAREADY", Shape::kNames64},
    {30, "DC_STAPLE"},
    {31, "DC_PRINTRATEPPM"},
    {32, "DC_COLORDEVICE"},
    {33, "DC_NUP"},
    {34, "DC_MEDIATYPENAMES"},
    {35, "DC_MEDIATYPES"},
};

constexpr DWORD kNotAnswered = static_cast<DWORD>(-1);

// The output buffer, wide enough for many more items of any shape than the driver offers.
struct Written {
    BYTE bytes[4096] = {};

    template <typename T>
    T At(size_t index) const {
        T value;
        std::memcpy(&value, bytes + index * sizeof(T), sizeof(T));
        return value;
    }
    // A name ends at its terminator, or with its slot.
    std::string NameAt(size_t index, size_t slot) const {
        std::basic_string<WCHAR> name(slot, 0);
        std::memcpy(name.data(), bytes + index * slot * sizeof(WCHAR), slot * sizeof(WCHAR));
        return ToUtf8(name.substr(0, name.find(WCHAR{0})));
    }
};

Json ItemJson(Shape shape, const Written& written, size_t index) {
    switch (shape) {
        case Shape::kWords:
            return written.At<WORD>(index);
        case Shape::kPairs:
            return Json::array({written.At<LONG>(2 * index), written.At<LONG>(2 * index + 1)});
        case Shape::kNames24:
            return written.NameAt(index, 24);
        default:
            return written.NameAt(index, 64);
    }
}

// What was written, item by item. An answer of no names still writes the empty one.
Json WrittenJson(Shape shape, DWORD answer, const Written& written) {
    Json items = Json::array();
    const bool names = shape == Shape::kNames24 || shape == Shape::kNames64;
    if (names || shape == Shape::kWords || shape == Shape::kPairs) {
        const DWORD count = std::min<DWORD>(std::max<DWORD>(answer, names ? 1 : 0), 32);
        for (DWORD i = 0; i < count; ++i) {
            items.push_back(ItemJson(shape, written, i));
        }
    }
    return items;
}

std::string AnswerText(Shape shape, DWORD answer) {
    if (answer == kNotAnswered) {
        return "not answered";
    }
    if (shape == Shape::kExtent) {
        return std::to_string(LOWORD(answer)) + " x " + std::to_string(HIWORD(answer));
    }
    if (shape == Shape::kHex) {
        char text[16];
        std::snprintf(text, sizeof(text), answer > 0xFFFF ? "0x%08X" : "0x%04X",
                      static_cast<unsigned>(answer));
        return text;
    }
    return std::to_string(answer);
}

std::string WrittenText(const Json& items) {
    std::string text;
    for (const Json& item : items) {
        text += text.empty() ? "" : ", ";
        text += item.is_array() ? item[0].dump() + " x " + item[1].dump() : item.dump();
    }
    return text;
}

int PrintCapabilities(const Options& options, std::ostream& out) {
    TemporaryPrinter printer(options.printer.name, options.printer.model);
    TextTable table;
    table.Row({"index", "name", "answer", "written"});
    Json rows = Json::array();
    for (const Capability& capability : kCapabilities) {
        Written written;
        const DWORD answer = DrvDeviceCapabilities(printer.get(), printer.Name(), capability.index,
                                                   written.bytes, nullptr);
        const bool answered = answer != kNotAnswered;
        const Json items =
            answered ? WrittenJson(capability.shape, answer, written) : Json::array();
        table.Row({std::to_string(capability.index), capability.name,
                   AnswerText(capability.shape, answer), WrittenText(items)});
        rows.push_back({{"index", capability.index},
                        {"name", capability.name},
                        {"answer", answered ? Json(answer) : Json()},
                        {"written", items}});
    }
    if (options.json) {
        PrintJson(out, {{"model", options.printer.model}, {"capabilities", std::move(rows)}});
    } else {
        table.Print(out);
    }
    return 0;
}

}  // namespace

Run DeclareCaps(CLI::App& command) {
    const auto options = std::make_shared<Options>();
    AddJson(command, options->json);
    AddModelAndPrinter(command, options->printer);
    return [options](std::ostream& out, std::ostream& notes) {
        NoteModel(notes, options->printer);
        return PrintCapabilities(*options, out);
    };
}

}  // namespace kpdtool
