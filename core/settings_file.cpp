// Settings files as bytes.
#include "core/settings_file.h"

#include <algorithm>
#include <cstring>

namespace {

// ---- The layout -------------------------------------------------------------------------------

constexpr SettingsField kDeviceOptionFields[] = {
    {0, RECORD_FIELD(Private.RibbonType)},   {1, RECORD_FIELD(Private.CardType)},
    {2, RECORD_FIELD(Private.PrintSides)},   {3, RECORD_FIELD(Private.ColorSides)},
    {4, RECORD_FIELD(Private.ResinOptions)}, {5, RECORD_FIELD(Private.TransparentCard)},
    {6, RECORD_FIELD(Private.PrintingMode)}, {7, RECORD_FIELD(Public.dmCopies)},
    {9, RECORD_FIELD(Public.dmOrientation)}, {11, RECORD_FIELD(Private.Reserved106)},
    {12, RECORD_FIELD(Private.Reserved112)}, {13, RECORD_FIELD(Private.Reserved113)},
    {14, RECORD_FIELD(Private.Reserved114)}, {15, RECORD_FIELD(Private.Reserved115)},
};

constexpr SettingsField kColorFields[] = {
    {0, RECORD_FIELD(Private.Brightness)},     {2, RECORD_FIELD(Private.Contrast)},
    {4, RECORD_FIELD(Private.Sharpness)},      {6, RECORD_FIELD(Private.Gamma)},
    {8, RECORD_FIELD(Private.Cyan)},           {10, RECORD_FIELD(Private.Magenta)},
    {12, RECORD_FIELD(Private.Yellow)},        {14, RECORD_FIELD(Private.Saturation)},
    {16, RECORD_FIELD(Private.ColorReserved)}, {32, RECORD_FIELD(Private.SkinTone)},
    {33, RECORD_FIELD(Private.ColorStyle)},    {34, RECORD_FIELD(Private.ColorFlag)},
    {35, RECORD_FIELD(Private.Reserved100)},   {37, RECORD_FIELD(Private.ColorPreference)},
    {38, RECORD_FIELD(Private.Reserved104)},   {39, RECORD_FIELD(Private.PrintingMode)},
    {40, RECORD_FIELD(Private.AutoEnhance)},   {41, RECORD_FIELD(Public.dmICMMethod)},
    {45, RECORD_FIELD(Private.SkinSliderV)},   {46, RECORD_FIELD(Private.SkinSliderH)},
};

constexpr SettingsRecord kRecords[] = {
    {kDeviceOptionSettings, "Device Option", 0x01AA, 11, kDeviceOptionFields},
    {kColorSettings, "Color", 0x02AA, 47, kColorFields},
};

constexpr bool HaveNoGaps() {
    for (const SettingsRecord& record : kRecords) {
        size_t offset = 0;
        for (const SettingsField& field : record.Fields) {
            if (field.Offset != offset) {
                return false;
            }
            offset += field.Field.Width;
        }
    }
    return true;
}
static_assert(HaveNoGaps());
static_assert(kRecords[0].Length() == 16);
static_assert(kRecords[1].Length() == 47);
static_assert(kLargestSettingsFile == 2 + kSettingsKeywordLength + 2 + 4 + 16 + 4 + 47 + 2);

constexpr WORD kCountWritten = 2;  // whichever parts follow

// ---- Bytes ------------------------------------------------------------------------------------

class Writer {
  public:
    explicit Writer(BYTE* place) : place_(place) {}
    void Bytes(const void* bytes, size_t size) {
        std::memcpy(place_, bytes, size);
        place_ += size;
    }
    void Number(WORD number) { Bytes(&number, sizeof(number)); }
    BYTE* Place() const { return place_; }

  private:
    BYTE* place_;
};

class Reader {
  public:
    explicit Reader(std::span<const BYTE> file) : rest_(file) {}

    // False, and then nothing is left, when there are fewer bytes.
    bool Bytes(size_t size, std::span<const BYTE>* bytes) {
        const bool there = rest_.size() >= size;
        *bytes = rest_.first(there ? size : 0);
        rest_ = there ? rest_.subspan(size) : std::span<const BYTE>();
        return there;
    }
    bool Number(WORD* number) {
        std::span<const BYTE> bytes;
        if (!Bytes(sizeof(*number), &bytes)) {
            return false;
        }
        std::memcpy(number, bytes.data(), sizeof(*number));
        return true;
    }

  private:
    std::span<const BYTE> rest_;
};

// ---- Records ----------------------------------------------------------------------------------

SettingsStatus ReadHeader(Reader& reader) {
    WORD header;
    if (!reader.Number(&header) || header != kSettingsHeader) {
        return SettingsStatus::kNoHeader;
    }
    std::span<const BYTE> keyword;
    if (!reader.Bytes(kSettingsKeywordLength, &keyword) ||
        std::memcmp(keyword.data(), kSettingsKeyword, kSettingsKeywordLength) != 0) {
        return SettingsStatus::kNoKeyword;
    }
    return SettingsStatus::kDone;
}

// Calls `take` for each record of a known type with as much of its body as the caller may read:
// all of it, or nothing when the file ends before.
template <typename Take>
SettingsStatus ReadRecords(std::span<const BYTE> file, Take take) {
    Reader reader(file);
    if (const SettingsStatus status = ReadHeader(reader); status != SettingsStatus::kDone) {
        return status;
    }
    WORD count;
    WORD type;
    WORD length;
    if (!reader.Number(&count)) {
        return SettingsStatus::kDone;
    }
    for (; count != 0; --count) {
        if (!reader.Number(&type) || type == kSettingsEnd || !reader.Number(&length)) {
            break;
        }
        const auto* record = std::ranges::find(kRecords, type, &SettingsRecord::Type);
        const bool known = record != std::end(kRecords);
        if (known && length < record->NeededLength) {
            return SettingsStatus::kBadRecord;
        }
        std::span<const BYTE> body;
        reader.Bytes(length, &body);
        if (known) {
            take(*record, body);
        }
    }
    return SettingsStatus::kDone;
}

}  // namespace

constinit const std::span<const SettingsRecord> kSettingsRecords = kRecords;

size_t WriteSettings(const DevModeRecord& record, DWORD parts, BYTE (&file)[kLargestSettingsFile]) {
    Writer writer(file);
    writer.Number(kSettingsHeader);
    writer.Bytes(kSettingsKeyword, kSettingsKeywordLength);
    writer.Number(kCountWritten);
    for (const SettingsRecord& row : kRecords) {
        if ((parts & row.Part) == 0) {
            continue;
        }
        writer.Number(row.Type);
        writer.Number(row.Length());
        for (const SettingsField& field : row.Fields) {
            writer.Bytes(reinterpret_cast<const BYTE*>(&record) + field.Field.Offset,
                         field.Field.Width);
        }
    }
    writer.Number(kSettingsEnd);
    return static_cast<size_t>(writer.Place() - file);
}

SettingsStatus ScanSettings(std::span<const BYTE> file, DWORD* parts) {
    *parts = 0;
    return ReadRecords(
        file, [parts](const SettingsRecord& row, std::span<const BYTE>) { *parts |= row.Part; });
}

SettingsStatus ApplySettings(std::span<const BYTE> file, DWORD parts, DevModeRecord& record,
                             SettingsApplied applied, void* parameter) {
    return ReadRecords(file, [&](const SettingsRecord& row, std::span<const BYTE> body) {
        if ((parts & row.Part) == 0 || body.empty()) {
            return;
        }
        for (const SettingsField& field : row.Fields) {
            if (size_t{field.Offset} + field.Field.Width <= body.size()) {
                std::memcpy(reinterpret_cast<BYTE*>(&record) + field.Field.Offset,
                            body.data() + field.Offset, field.Field.Width);
            }
        }
        applied(row.Part, parameter);
    });
}
