// The registry: keys and values.
#include "platform_test.h"

namespace {

using test::WideString;

constexpr WCHAR kRoot[] = TEXT("Software\\KpdTest");

class RegistryTest : public test::PlatformTest {
  protected:
    void TearDown() override {
#ifdef _WIN32  // the registry outlives the test there
        RegDeleteTreeW(HKEY_CURRENT_USER, kRoot);
#endif
        PlatformTest::TearDown();
    }
    // A key below the user's, made when it is missing; the caller closes it.
    static HKEY Create(const WideString& path, REGSAM access, DWORD* disposition = nullptr) {
        HKEY key = nullptr;
        EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr,
                                  REG_OPTION_NON_VOLATILE, access, nullptr, &key, disposition),
                  ERROR_SUCCESS);
        return key;
    }
};

TEST_F(RegistryTest, KeysAreMadeWithAllThatLeadsToThem) {
    const WideString path = WideString(kRoot) + TEXT("\\One\\Two");
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &key),
              ERROR_FILE_NOT_FOUND);
    DWORD disposition = 0;
    RegCloseKey(Create(path, KEY_READ, &disposition));
    EXPECT_EQ(disposition, DWORD{REG_CREATED_NEW_KEY});
    RegCloseKey(Create(path, KEY_READ, &disposition));
    EXPECT_EQ(disposition, DWORD{REG_OPENED_EXISTING_KEY});

    HKEY root = Create(kRoot, KEY_READ, &disposition);
    EXPECT_EQ(disposition, DWORD{REG_OPENED_EXISTING_KEY});
    for (const WCHAR* name : {TEXT("One"), TEXT("oNE\\tWO"), TEXT("One\\Two\\"), TEXT("")}) {
        ASSERT_EQ(RegOpenKeyExW(root, name, 0, KEY_READ, &key), ERROR_SUCCESS);
        EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    }
    EXPECT_EQ(RegOpenKeyExW(root, TEXT("Two"), 0, KEY_READ, &key), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, &key),
              ERROR_FILE_NOT_FOUND)
        << "another tree";
    RegCloseKey(root);
}

TEST_F(RegistryTest, ValuesKeepTheirTypeAndBytes) {
    HKEY key = Create(kRoot, KEY_READ | KEY_WRITE);
    const struct {
        const WCHAR* name;
        DWORD type;
        std::string bytes;
    } cases[] = {
        {TEXT("Number"), REG_DWORD, std::string("\x01\x00\x00\x80", 4)},
        {TEXT("Text"), REG_SZ, std::string("a\0b\0\0\0", 6)},
        {TEXT("Raw"), REG_BINARY, std::string("\0\xFF\0", 3)},
        {TEXT("Nothing"), REG_BINARY, ""},
        {nullptr, REG_SZ, std::string("d\0\0\0", 4)},
        {TEXT("nUMBER"), REG_BINARY, "replaced"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name == nullptr ? "default" : test::Narrow(c.name));
        const DWORD size = static_cast<DWORD>(c.bytes.size());
        ASSERT_EQ(RegSetValueExW(key, c.name, 0, c.type,
                                 reinterpret_cast<const BYTE*>(c.bytes.data()), size),
                  ERROR_SUCCESS);
        BYTE data[16];
        DWORD type = 99;
        DWORD room = sizeof(data);
        ASSERT_EQ(RegQueryValueExW(key, c.name, nullptr, &type, data, &room), ERROR_SUCCESS);
        EXPECT_EQ(type, c.type);
        EXPECT_EQ(std::string(data, data + room), c.bytes);
    }
    DWORD type = 99;
    EXPECT_EQ(RegQueryValueExW(key, TEXT("Number"), nullptr, &type, nullptr, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(type, DWORD{REG_BINARY}) << "names are one in either case";
    RegCloseKey(key);
}

TEST_F(RegistryTest, QueriesTellTheSize) {
    HKEY key = Create(kRoot, KEY_READ | KEY_WRITE);
    ASSERT_EQ(
        RegSetValueExW(key, TEXT("v"), 0, REG_BINARY, reinterpret_cast<const BYTE*>("abcd"), 4),
        ERROR_SUCCESS);
    BYTE data[4] = {'#', '#', '#', '#'};
    DWORD size = 0;
    EXPECT_EQ(RegQueryValueExW(key, TEXT("v"), nullptr, nullptr, nullptr, &size), ERROR_SUCCESS);
    EXPECT_EQ(size, 4u);
    size = 3;
    EXPECT_EQ(RegQueryValueExW(key, TEXT("v"), nullptr, nullptr, data, &size), ERROR_MORE_DATA);
    EXPECT_EQ(size, 4u);
    EXPECT_EQ(data[3], '#');
    EXPECT_EQ(RegQueryValueExW(key, TEXT("v"), nullptr, nullptr, data, nullptr),
              ERROR_INVALID_PARAMETER);
    EXPECT_EQ(RegQueryValueExW(key, TEXT("missing"), nullptr, nullptr, data, &size),
              ERROR_FILE_NOT_FOUND);
    RegCloseKey(key);
    EXPECT_EQ(RegQueryValueExW(nullptr, TEXT("v"), nullptr, nullptr, data, &size),
              ERROR_INVALID_HANDLE);
}

TEST_F(RegistryTest, AccessIsWhatWasAskedForAndErrorsAreOnlyReturned) {
    HKEY reader = Create(kRoot, KEY_READ);
    HKEY writer = Create(kRoot, KEY_SET_VALUE);
    const BYTE value[4] = {};
    DWORD size = 4;
    BYTE data[4];
    SetLastError(77);
    EXPECT_EQ(RegSetValueExW(reader, TEXT("v"), 0, REG_DWORD, value, 4), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegSetValueExW(writer, TEXT("v"), 0, REG_DWORD, value, 4), ERROR_SUCCESS);
    EXPECT_EQ(RegQueryValueExW(writer, TEXT("v"), nullptr, nullptr, data, &size),
              ERROR_ACCESS_DENIED);
    EXPECT_EQ(GetLastError(), 77u);
    RegCloseKey(reader);
    RegCloseKey(writer);
    EXPECT_EQ(RegCloseKey(HKEY_CURRENT_USER), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(nullptr), ERROR_INVALID_HANDLE);
}

}  // namespace
