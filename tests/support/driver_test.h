// The fixture for the driver itself: printers of any model on the computer the test runs on.
#pragma once

#include "core/device_mode.h"
#include "guarded_buffer.h"
#include "platform_test.h"
#include "tools/computer/computer.h"

#include <vector>

namespace test {

inline const WideString kPrinterName = TEXT("Badge room");

class DriverTest : public PlatformTest {
  protected:
    void SetUp() override;
    void TearDown() override;  ///< removes the printer; the user's UI language is again what it was

    /// Adds the printer kPrinterName (or replaces it) and gives a handle with every right, closed
    /// at the end of the test.
    HANDLE NewPrinter(const WideString& model, const WideString& port = {},
                      const std::vector<BYTE>& defaultRecord = {});

  private:
    LANGID language_ = 0;
    std::vector<HANDLE> opened_;
};

/// The bytes of a record's public and private part, as its own sizes say.
std::vector<BYTE> BytesOf(const DEVMODEW& record);

/// The driver's default record for a model.
DevModeRecord DefaultRecord(const WideString& model = TEXT("Mirv KP-41"));

/// Stores and reads printer data through the spooler.
void StoreValue(HANDLE printer, const WCHAR* name, DWORD type, const std::vector<BYTE>& bytes);
void StoreNumber(HANDLE printer, const WCHAR* name, DWORD number);
/// The value's bytes, empty when it is missing; the type through `type` when given.
std::vector<BYTE> StoredValue(HANDLE printer, const WCHAR* name, DWORD* type = nullptr);
DWORD StoredNumber(HANDLE printer, const WCHAR* name);

}  // namespace test
