// The sample printer as calls and queries have it, for one of them.
#pragma once

#include "operation.h"
#include "sample_file.h"

/// The printer of that name, if it answers; it lives in SamplePrinter.txt. What is not there has
/// the value of a new printer.
class Printer : public SampleFile {
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
void ReadTable(const SampleFile& printer, BYTE* table);
void WriteTable(SampleFile& printer, const BYTE* table);
