// The fixture over the stand-in.
#include "platform/host.h"
#include "platform_test.h"

namespace test {

void PlatformTest::SetUp() {
    host::Reset();
    std::filesystem::create_directories(DiskPath(TestFolder()));
    std::filesystem::create_directories(DiskPath(DriverFolder()));
}

void PlatformTest::TearDown() {
    EXPECT_EQ(host::CurrentHoldings(), host::Holdings{}) << "something is still held";
}

WideString TestFolder() {
    return TEXT("C:\\kpdtest");
}

WideString DriverFolder() {
    return TEXT("C:\\Windows\\system32\\spool\\drivers\\x64\\3");
}

std::filesystem::path DiskPath(const WideString& path) {
    return host::DiskPath(path.c_str());
}

int Rounds(int natively) {
    return natively;
}

bool SetUiLanguage(LANGID language) {
    host::SetUiLanguage(language);
    return true;
}

bool SetCountry(int code) {
    host::SetCountry(code);
    return true;
}

bool SetCodePage(UINT codePage) {
    host::SetCodePage(codePage);
    return true;
}

}  // namespace test
