// The user's registry key of a printer, where pages keep what is his.
#pragma once

#include "platform_test.h"

namespace test {

/// For the length of a test; on a real computer it is gone afterwards.
class PrinterUserKey {
  public:
    explicit PrinterUserKey(const WideString& printer) : path_(TEXT("Printers\\") + printer) {
        Remove();
    }
    PrinterUserKey(const PrinterUserKey&) = delete;
    PrinterUserKey& operator=(const PrinterUserKey&) = delete;
    ~PrinterUserKey() { Remove(); }

    bool IsThere() const {
        HKEY key = nullptr;
        const bool isThere =
            RegOpenKeyExW(HKEY_CURRENT_USER, path_.c_str(), 0, KEY_READ, &key) == ERROR_SUCCESS;
        if (isThere) {
            RegCloseKey(key);
        }
        return isThere;
    }

    /// Exactly these bytes, also of a text without its end.
    void Store(const WCHAR* name, DWORD type, const std::string& bytes) const {
        const std::string guarded = bytes + "xxxx";
        HKEY key = nullptr;
        ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, path_.c_str(), 0, nullptr, 0, KEY_WRITE,
                                  nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        EXPECT_EQ(RegSetValueExW(key, name, 0, type, reinterpret_cast<const BYTE*>(guarded.data()),
                                 static_cast<DWORD>(bytes.size())),
                  ERROR_SUCCESS);
        RegCloseKey(key);
    }
    void StoreText(const WCHAR* name, const WideString& text) const {
        Store(name, REG_SZ,
              {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(WCHAR)});
    }

    /// "none" without the value; else "type:size:text", the text with a "." for every zero.
    std::string Stored(const WCHAR* name) const {
        HKEY key = nullptr;
        DWORD type = 0;
        DWORD size = 4096;
        WCHAR text[2048] = {};
        LSTATUS status = RegOpenKeyExW(HKEY_CURRENT_USER, path_.c_str(), 0, KEY_QUERY_VALUE, &key);
        if (status == ERROR_SUCCESS) {
            // The size first: with room, a text may be given an end that is not stored.
            RegQueryValueExW(key, name, nullptr, nullptr, nullptr, &size);
            status =
                RegQueryValueExW(key, name, nullptr, &type, reinterpret_cast<BYTE*>(text), &size);
            RegCloseKey(key);
        }
        if (status != ERROR_SUCCESS) {
            return "none";
        }
        WideString shown(text, size / sizeof(WCHAR));
        const size_t end = shown.find_last_not_of(WCHAR{0}) + 1;
        const std::string zeros =
            shown.size() > end ? "+" + std::to_string(shown.size() - end) + "z" : "";
        return std::to_string(type) + ":" + std::to_string(size) + ":" +
               Narrow(shown.substr(0, end)) + zeros;
    }

  private:
    void Remove() const {
#ifdef _WIN32  // the registry outlives the test there
        RegDeleteTreeW(HKEY_CURRENT_USER, path_.c_str());
#endif
    }

    WideString path_;
};

}  // namespace test
