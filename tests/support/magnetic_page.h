// The fixture for the Magnetic Encoding page by itself, with the registry key of its printer.
#pragma once

#include "lone_page.h"
#include "printer_user_key.h"
#include "resources/resource.h"
#include "ui/pages/magnetic/encoding_rules.h"
#include "ui/pages/magnetic/magnetic_encoding_page.h"

#include <prsht.h>

namespace test {

class MagneticPageTest : public LonePageTest {
  protected:
    void SetUp() override {
        LonePageTest::SetUp();
        context_.PrinterName = printer_.data();
        printer_.copy(Paper().dmDeviceName, CCHDEVICENAME);
        Record().CardType = kMagneticStripeCard;
    }
    void Open() {
        OpenPage(IDD_MAGNETIC_ENCODING, PageProc<kMagneticEncodingPage>);
        TakeChanges();
    }

    std::string Text(int control) const { return TextOf(Item(control)); }
    std::string Path() const { return Text(IDC_DATABASE_PATH); }

    WideString printer_ = TEXT("Badge room");
    PrinterUserKey key_{printer_};
};

/// The page's texts in the order of their storing, the path apart.
inline constexpr struct {
    int control;
    const WCHAR* value;
    LRESULT limit;
    bool tells;  ///< the sheet of changes
} kMagneticTextRows[] = {
    {IDC_TRACK_1, TEXT("MagneticTrack1"), 76, true},
    {IDC_TRACK_2, TEXT("MagneticTrack2"), 37, true},
    {IDC_TRACK_3, TEXT("MagneticTrack3"), 104, true},
    {IDC_FILTER_PREFIX, TEXT("FilterPrefix"), 12, false},
    {IDC_FILTER_SUFFIX, TEXT("FilterSuffix"), 12, false},
};
inline constexpr const WCHAR* kStoredPath = TEXT("UsingDatabaseFileName");

}  // namespace test
