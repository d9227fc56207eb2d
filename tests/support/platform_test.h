// The fixture that every test stands on: a fresh computer, natively played by the stand-in and in
// the Windows build the real one. The differences are in platform_test_native.cpp and
// platform_test_windows.cpp; a test itself does not know which it runs on.
#pragma once

#include <windows.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace test {

using WideString = std::basic_string<WCHAR>;

class PlatformTest : public ::testing::Test {
  protected:
    void SetUp() override;     ///< a fresh computer with an empty test folder
    void TearDown() override;  ///< natively: fails when a handle or block is still held
};

/// An empty folder of the test's own, as the platform names it, without trailing backslash.
WideString TestFolder();
/// The folder where the driver package lies, as the platform names it: the system directory
/// followed by "\spool\drivers\x64\3". It exists.
WideString DriverFolder();
/// The built companion library of the tests, as the standard library's file operations name it.
WideString SampleCompanion();
/// Where a path of the platform is on disk, for the standard library's file operations.
std::filesystem::path DiskPath(const WideString& path);

/// Writes a whole file / reads one; fails the test when that cannot be done.
void WriteBytes(const WideString& path, const std::string& bytes);
std::string ReadBytes(const WideString& path);
/// Text as a UTF-16LE file with byte-order mark, as the language files are.
void WriteWideText(const WideString& path, const WideString& text);

/// Makes this the user's UI language, country and code page. False when the computer cannot be
/// changed from inside and has others: such a test is then run in a process started with them.
bool SetUiLanguage(LANGID language);
bool SetCountry(int code);
bool SetCodePage(UINT codePage);

/// How many of so many random cases are worth their time here: natively all, on the real computer,
/// where every window costs its requests, a part.
int Rounds(int natively);

/// ASCII text in a readable form for messages, and the way back.
std::string Narrow(const WideString& text);
WideString Wide(const std::string& text);

}  // namespace test
