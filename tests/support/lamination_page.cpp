// One implementation for both platforms.
#include "lamination_page.h"

#include "resources/resource.h"
#include "ui/pages/lamination/lamination_page.h"

#include <commctrl.h>
#include <prsht.h>

namespace test {

void LaminationPageTest::SetUp() {
    LonePageTest::SetUp();
    context_.PrinterName = name_.data();
    context_.IsDuplexModel = 1;
}

void LaminationPageTest::TearDown() {
    printer_.reset();
    LonePageTest::TearDown();
}

void LaminationPageTest::Connect(const std::string& state) {
    printer_.reset();
    printer_.emplace(state);
    ASSERT_EQ(printer_->Reason(), "");
}

void LaminationPageTest::Open() {
    OpenPage(IDD_LAMINATION, PageProc<kLaminationPage>);
}

void LaminationPageTest::Activate() {
    Notify(PSN_SETACTIVE);
    HandlePosted();
}

void LaminationPageTest::Start() {
    Connect(kLaminator);
    Open();
    Activate();
}

void LaminationPageTest::Slide(int slider, int position, WORD code) {
    SendMessageW(Item(slider), TBM_SETPOS, TRUE, position);
    SendMessageW(page_, WM_HSCROLL, code, reinterpret_cast<LPARAM>(Item(slider)));
}

void LaminationPageTest::Step(int arrows, WORD code) {
    SendMessageW(page_, WM_VSCROLL, code, reinterpret_cast<LPARAM>(Item(arrows)));
}

std::string LaminationPageTest::Transfer() const {
    return Looks(IDC_DWELL_TIME) + " " + Looks(IDC_DWELL_TIME_VALUE) + ", " +
           Looks(IDC_TEMPERATURE) + " " + Looks(IDC_TEMPERATURE_VALUE);
}

std::string LaminationPageTest::Position() const {
    return Looks(IDC_LAMINATION_A) + " " + std::to_string(Offset(IDC_LAMINATION_A_SCROLL)) + ", " +
           Looks(IDC_LAMINATION_B) + " " + std::to_string(Offset(IDC_LAMINATION_B_SCROLL));
}

std::string LaminationPageTest::Saves() const {
    std::string saves;
    for (const int save : {IDC_TRANSFER_SAVE, IDC_LAMINATION_POSITION_SAVE}) {
        saves += IsWindowEnabled(Item(save)) ? "x" : ".";
    }
    return saves;
}

}  // namespace test
