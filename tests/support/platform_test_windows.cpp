// The fixture over the real platform.
#include "platform_test.h"

namespace test {

void PlatformTest::SetUp() {
    std::filesystem::remove_all(DiskPath(TestFolder()));
    std::filesystem::create_directories(DiskPath(TestFolder()));
    std::filesystem::create_directories(DiskPath(DriverFolder()));
}

void PlatformTest::TearDown() {
    std::filesystem::remove_all(DiskPath(TestFolder()));
}

WideString TestFolder() {
    return TEXT("C:\\kpdtest");
}

WideString DriverFolder() {
    WCHAR system[MAX_PATH];
    GetSystemDirectoryW(system, MAX_PATH);
    return system + WideString(TEXT("\\spool\\drivers\\x64\\3"));
}

std::filesystem::path DiskPath(const WideString& path) {
    return path;
}

int Rounds(int natively) {
    return (natively + 4) / 5;
}

bool SetUiLanguage(LANGID language) {
    return GetUserDefaultUILanguage() == language;
}

bool SetCountry(int code) {
    WCHAR text[16] = {};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_ICOUNTRY, text, 16);
    return text == Wide(std::to_string(code));
}

bool SetCodePage(UINT codePage) {
    return GetACP() == codePage;
}

}  // namespace test
