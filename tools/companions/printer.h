// The sample printer as calls and queries have it, for one of them.
#pragma once

#include "printer_file.h"

#ifdef _WIN32
#define OPERATION extern "C" __declspec(dllexport)
#else
#define OPERATION extern "C" __attribute__((visibility("default")))
#endif

/// The printer of that name, if it answers.
class Printer : public PrinterFile {
  public:
    explicit Printer(const WCHAR* name);

    bool Answers() const { return answers_; }
    bool IsShort() const { return fault_ == "short"; }
    bool IsWrong() const { return fault_ == "wrong"; }

    /// Complains unless a condition of the contract holds.
    bool Require(bool condition, const char* complaint) {
        if (!condition) {
            Complain(complaint);
        }
        return condition;
    }

  private:
    std::string fault_;
    bool answers_ = false;
};

/// The calibration table: 4 rows of 32 bytes.
constexpr size_t kTableSize = 128;
void ReadTable(const PrinterFile& printer, BYTE* table);
void WriteTable(PrinterFile& printer, const BYTE* table);
