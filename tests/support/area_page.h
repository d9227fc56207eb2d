// The fixture for a page with print areas by itself, with or without the sample of the designer
// library, which notes every call that breaks the contract.
#pragma once

#include "application_data.h"
#include "lone_page.h"
#include "printer_user_key.h"
#include "tools/computer/sample_library.h"

#include <optional>
#include <sstream>
#include <vector>

namespace test {

class AreaPageTest : public LonePageTest {
  protected:
    void SetUp() override {
        LonePageTest::SetUp();
        applicationData_.emplace();
        applicationData_->Store(TestFolder());
        key_.emplace(printer_);
        context_.PrinterName = printer_.data();
    }
    void TearDown() override {
        ClosePage();
        EXPECT_EQ(Noted("complaint"), "");
        designer_.reset();
        key_.reset();
        applicationData_.reset();
        LonePageTest::TearDown();
    }

    void Connect(const std::string& state) {
        designer_.reset();
        designer_.emplace(state);
        ASSERT_EQ(designer_->Reason(), "");
    }
    /// Areas kept as files, listed in the order of their files' names.
    void KeepAreas(const std::vector<std::string>& names) {
        const std::string area =
            "orientation = landscape\nlayout = 1014 642\ncard = 255 255 255\narea = 0 0 255\n"
            "block = 2 0 0 1014 642\n";
        const WideString folder = TestFolder() + TEXT("\\Mirv\\PrtArea");
        std::filesystem::create_directories(DiskPath(folder));
        for (size_t i = 0; i < names.size(); ++i) {
            WriteBytes(folder + TEXT("\\") + Wide(std::to_string(i)) + TEXT(".txt"),
                       "name = " + names[i] + "\n" + area);
        }
    }
    void ClosePage() {
        if (page_ != nullptr) {
            DestroyWindow(std::exchange(page_, nullptr));
        }
    }

    /// The designer's lines of that name, each ended by a line feed.
    std::string Noted(const std::string& name) const {
        std::string noted;
        std::istringstream state(designer_ ? designer_->State() : "");
        for (std::string line; std::getline(state, line);) {
            if (line.starts_with(name + " = ")) {
                noted += line.substr(name.size() + 3) + "\n";
            }
        }
        return noted;
    }

    WideString printer_ = TEXT("Badge room");
    std::optional<ApplicationData> applicationData_;
    std::optional<PrinterUserKey> key_;
    std::optional<computer::SampleDesigner> designer_;
};

}  // namespace test
