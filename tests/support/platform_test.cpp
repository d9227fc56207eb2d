// What the fixture does alike on both platforms.
#include "platform_test.h"

#include <fstream>
#include <sstream>

namespace test {

WideString SampleCompanion() {
    return Wide(KPD_SAMPLE_COMPANION);
}

void WriteBytes(const WideString& path, const std::string& bytes) {
    std::ofstream file(DiskPath(path), std::ios::binary);
    file << bytes;
    ASSERT_TRUE(file.flush()) << "cannot write " << Narrow(path);
}

std::string ReadBytes(const WideString& path) {
    std::ifstream file(DiskPath(path), std::ios::binary);
    EXPECT_TRUE(file) << "cannot read " << Narrow(path);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

void WriteWideText(const WideString& path, const WideString& text) {
    std::string bytes = "\xFF\xFE";
    for (WCHAR c : text) {
        bytes += static_cast<char>(c & 0xFF);
        bytes += static_cast<char>(c >> 8);
    }
    WriteBytes(path, bytes);
}

std::string Narrow(const WideString& text) {
    std::string out;
    for (WCHAR c : text) {
        out += c < 0x80 ? static_cast<char>(c) : '?';
    }
    return out;
}

WideString Wide(const std::string& text) {
    return WideString(text.begin(), text.end());
}

}  // namespace test
