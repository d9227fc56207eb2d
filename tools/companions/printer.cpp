// Whether the printer answers, and its calibration table.
#include "printer.h"

#include "tools/kpdtool/wide_text.h"

#include <cstdint>
#include <iterator>

namespace {

constexpr size_t kRows = 4;
constexpr size_t kRowSize = 32;
static_assert(kRows * kRowSize == kTableSize);

// Where the numbers of a line stand in a row: A, B, C, the 16 bits, the same of the defaults, the
// rest. Signed but for the rest.
struct Place {
    BYTE At;
    BYTE Size;
    bool Signed;
};
constexpr Place kPlaces[] = {
    {1, 1, true},   {4, 1, true},   {0, 1, true},   {2, 2, false},  {9, 1, true},   {12, 1, true},
    {8, 1, true},   {10, 2, false}, {5, 1, false},  {6, 1, false},  {7, 1, false},  {13, 1, false},
    {14, 1, false}, {15, 1, false}, {16, 1, false}, {17, 1, false}, {18, 1, false}, {19, 1, false},
    {20, 1, false}, {21, 1, false}, {22, 1, false}, {23, 1, false}, {24, 1, false}, {25, 1, false},
    {26, 1, false}, {27, 1, false}, {28, 1, false}, {29, 1, false}, {30, 1, false}, {31, 1, false},
};

std::string RowName(size_t row) {
    return "calibration " + std::to_string(row);
}

int NumberAt(const BYTE* row, const Place& place) {
    const int number = place.Size == 2 ? row[place.At] | row[place.At + 1] << 8 : row[place.At];
    return place.Signed ? static_cast<std::int8_t>(number) : number;
}

}  // namespace

Printer::Printer(const WCHAR* name) : SampleFile(DriverFile(TEXT("SamplePrinter.txt"))) {
    if (name == nullptr) {
        Complain("no printer name");
    }
    const std::string own = Text("printer");
    fault_ = Text("fault");
    answers_ = IsThere() && name != nullptr && fault_ != "silent" &&
               (own.empty() || own == kpdtool::ToUtf8(name));
}

void ReadTable(const SampleFile& printer, BYTE* table) {
    for (size_t row = 0; row < kRows; ++row) {
        const std::vector<int> numbers = printer.Numbers(RowName(row), std::size(kPlaces));
        for (size_t i = 0; i < numbers.size(); ++i) {
            for (BYTE byte = 0; byte < kPlaces[i].Size; ++byte) {
                table[row * kRowSize + kPlaces[i].At + byte] =
                    static_cast<BYTE>(numbers[i] >> 8 * byte);
            }
        }
    }
}

void WriteTable(SampleFile& printer, const BYTE* table) {
    for (size_t row = 0; row < kRows; ++row) {
        std::vector<int> numbers;
        for (const Place& place : kPlaces) {
            numbers.push_back(NumberAt(table + row * kRowSize, place));
        }
        while (numbers.size() > 8 && numbers.back() == 0) {
            numbers.pop_back();
        }
        printer.SetNumbers(RowName(row), numbers);
    }
}
