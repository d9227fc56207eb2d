// The registry: keys and values.
#include "platform_test.h"

#include <tuple>

namespace {

constexpr WCHAR kRoot[] = TEXT("Software\\KpdTest");
constexpr WCHAR kBelow[] = TEXT("Software\\KpdTest\\One\\Two");

class RegistryTest : public test::PlatformTest {
  protected:
    void TearDown() override {
#ifdef _WIN32  // the registry outlives the test there
        RegDeleteTreeW(HKEY_CURRENT_USER, kRoot);
#endif
        PlatformTest::TearDown();
    }
};

// A key of the user's, new or not as expected; the caller closes it.
HKEY Create(const WCHAR* path, REGSAM access, DWORD expected) {
    HKEY key = nullptr;
    DWORD disposition = 0;
    EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, REG_OPTION_NON_VOLATILE, access,
                              nullptr, &key, &disposition),
              ERROR_SUCCESS);
    EXPECT_EQ(disposition, expected);
    return key;
}

LSTATUS Set(HKEY key, const WCHAR* name, const std::string& bytes, DWORD type) {
    const BYTE* data = reinterpret_cast<const BYTE*>(bytes.data());
    return RegSetValueExW(key, name, 0, type, data, static_cast<DWORD>(bytes.size()));
}

TEST_F(RegistryTest, KeysAreMadeWithAllThatLeadsToThemAndGiveTheAccessAskedFor) {
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, kBelow, 0, KEY_READ, &key), ERROR_FILE_NOT_FOUND);
    RegCloseKey(Create(kBelow, KEY_READ, REG_CREATED_NEW_KEY));
    HKEY writer = Create(kRoot, KEY_WRITE, REG_OPENED_EXISTING_KEY);
    ASSERT_EQ(RegOpenKeyExW(writer, TEXT("oNE\\tWO"), 0, KEY_READ, &key), ERROR_SUCCESS);
    const auto query = [](HKEY from) {
        return RegQueryValueExW(from, TEXT("v"), nullptr, nullptr, nullptr, nullptr);
    };
    EXPECT_EQ(Set(key, TEXT("v"), "a", REG_BINARY), ERROR_ACCESS_DENIED);
    EXPECT_EQ(query(key), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(query(writer), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    RegCloseKey(writer);
}

TEST_F(RegistryTest, ValuesKeepTheirTypeAndBytesAndTellTheirSize) {
    HKEY key = Create(kRoot, KEY_READ | KEY_WRITE, REG_CREATED_NEW_KEY);
    const std::tuple<const WCHAR*, DWORD, std::string> cases[] = {
        {TEXT("Value"), REG_DWORD, std::string("\x01\x00\x00\x80", 4)},
        {TEXT("vALUE"), REG_SZ, std::string("a\0b\0\0\0", 6)},
        {TEXT("Value"), REG_BINARY, std::string("\0\xFF\0", 3)},
    };
    for (const auto& [name, type, bytes] : cases) {
        ASSERT_EQ(Set(key, name, bytes, type), ERROR_SUCCESS);
        DWORD size = 2;
        DWORD found = 99;
        BYTE data[8];
        const auto query = [&](BYTE* buffer) {
            return RegQueryValueExW(key, TEXT("Value"), nullptr, &found, buffer, &size);
        };
        EXPECT_EQ(query(data), ERROR_MORE_DATA);
        EXPECT_EQ(size, bytes.size());
        size = 0;
        EXPECT_EQ(query(nullptr), ERROR_SUCCESS);
        ASSERT_EQ(query(data), ERROR_SUCCESS) << "of the size that it told";
        EXPECT_EQ(found, type);
        EXPECT_EQ(std::string(data, data + size), bytes);
    }
    RegCloseKey(key);
}

// A terminator that stands behind the last byte is stored although the size leaves it out.
TEST_F(RegistryTest, TextsAreStoredWithTheTerminatorBehindThem) {
    HKEY key = Create(kRoot, KEY_READ | KEY_WRITE, REG_CREATED_NEW_KEY);
    const struct {
        DWORD type;
        const WCHAR* text;
        DWORD size;
        DWORD stored;
    } cases[] = {
        {REG_SZ, TEXT("ab"), 4, 6},    {REG_SZ, TEXT("ab"), 6, 6}, {REG_SZ, TEXT("ab "), 4, 4},
        {REG_SZ, TEXT("a\0\0"), 4, 4}, {REG_SZ, TEXT(""), 0, 0},   {REG_BINARY, TEXT("ab"), 4, 4},
    };
    for (const auto& c : cases) {
        const auto* bytes = reinterpret_cast<const BYTE*>(c.text);
        ASSERT_EQ(RegSetValueExW(key, TEXT("v"), 0, c.type, bytes, c.size), ERROR_SUCCESS);
        DWORD size = 0;
        EXPECT_EQ(RegQueryValueExW(key, TEXT("v"), nullptr, nullptr, nullptr, &size),
                  ERROR_SUCCESS);
        EXPECT_EQ(size, c.stored) << c.type << " of " << c.size;
    }
    RegCloseKey(key);
}

}  // namespace
