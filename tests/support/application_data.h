// Where the user's application data are, as the registry says it for the session.
#pragma once

#include "platform_test.h"

namespace test {

/// The value "APPDATA" of the key "Volatile Environment" for the length of a test, at first not
/// there; on a real computer it is put back at the end.
class ApplicationData {
  public:
#ifdef _WIN32  // the registry outlives the test there
    ApplicationData() {
        HKEY key = Key();
        size_ = sizeof(before_);
        if (RegQueryValueExW(key, kValue, nullptr, &type_, before_, &size_) != ERROR_SUCCESS) {
            size_ = 0;
        }
        RegDeleteValueW(key, kValue);
        RegCloseKey(key);
    }
    ~ApplicationData() {
        HKEY key = Key();
        RegDeleteValueW(key, kValue);
        if (size_ != 0) {
            RegSetValueExW(key, kValue, 0, type_, before_, size_);
        }
        RegCloseKey(key);
    }
#else
    ApplicationData() = default;
#endif
    ApplicationData(const ApplicationData&) = delete;
    ApplicationData& operator=(const ApplicationData&) = delete;

    void Store(const WideString& folder) {
        StoreBytes(REG_SZ, {reinterpret_cast<const char*>(folder.c_str()),
                            (folder.size() + 1) * sizeof(WCHAR)});
    }
    /// Exactly these bytes, also of a text without its end.
    void StoreBytes(DWORD type, const std::string& bytes) {
        const std::string guarded = bytes + "xxxx";
        HKEY key = Key();
        EXPECT_EQ(
            RegSetValueExW(key, kValue, 0, type, reinterpret_cast<const BYTE*>(guarded.data()),
                           static_cast<DWORD>(bytes.size())),
            ERROR_SUCCESS);
        RegCloseKey(key);
    }

  private:
    static constexpr const WCHAR* kValue = TEXT("APPDATA");

    static HKEY Key() {
        HKEY key = nullptr;
        EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, TEXT("Volatile Environment"), 0, nullptr, 0,
                                  KEY_READ | KEY_WRITE, nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        return key;
    }

#ifdef _WIN32
    DWORD type_ = REG_SZ;
    DWORD size_ = 0;
    BYTE before_[2048];
#endif
};

}  // namespace test
