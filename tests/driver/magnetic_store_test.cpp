// The Magnetic Encoding page's texts in the registry: the bytes that are stored, and whatever else
// may lie there.
#include "ui/pages/magnetic/magnetic_store.h"

#include "printer_user_key.h"

#include <memory>
#include <random>

namespace test {
namespace {

constexpr const WCHAR* kPrinter = TEXT("Kpd magnet");
constexpr const WCHAR* kNames[kMagneticTexts] = {
    TEXT("UsingDatabaseFileName"), TEXT("MagneticTrack1"), TEXT("MagneticTrack2"),
    TEXT("MagneticTrack3"),        TEXT("FilterPrefix"),   TEXT("FilterSuffix"),
};

class MagneticStoreTest : public PlatformTest {
  protected:
    void SetUp() override {
        PlatformTest::SetUp();
        key_ = std::make_unique<PrinterUserKey>(kPrinter);
    }
    void TearDown() override {
        key_.reset();
        PlatformTest::TearDown();
    }

    static MagneticTexts Read() {
        MagneticTexts texts;
        std::fill_n(&texts.Texts[0][0], kMagneticTexts * kMagneticTextLength, WCHAR{'?'});
        ReadMagneticTexts(kPrinter, texts);
        return texts;
    }
    static void Set(MagneticTexts& texts, int index, const WideString& text) {
        texts.Texts[index][text.copy(texts.Texts[index], kMagneticTextLength - 1)] = 0;
    }
    /// "type:size:text" of every value.
    std::string StoredValues() const {
        std::string values;
        for (const WCHAR* name : kNames) {
            values += key_->Stored(name) + "\n";
        }
        return values;
    }

    std::unique_ptr<PrinterUserKey> key_;
};

std::string Units(const WideString& text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(WCHAR)};
}

TEST_F(MagneticStoreTest, BytesAreExact) {
    key_->Store(TEXT("Other"), REG_SZ, "");
    MagneticTexts texts = {};
    WriteMagneticTexts(kPrinter, texts);
    EXPECT_EQ(StoredValues(), "1:520:+260z\n1:256:+128z\n1:256:+128z\n1:256:+128z\n1:0:\n1:0:\n");
    Set(texts, kDatabasePathText, TEXT("C:\\a.txt"));
    Set(texts, kTrack1Text, TEXT("ABC 1"));
    Set(texts, kTrack2Text, WideString(127, '2'));
    Set(texts, kTrack3Text, WideString(128, '3'));
    Set(texts, kPrefixText, TEXT("~14$"));
    Set(texts, kSuffixText, TEXT("~"));
    WriteMagneticTexts(kPrinter, texts);
    EXPECT_EQ(StoredValues(),
              "1:520:C:\\a.txt+252z\n1:256:ABC 1+123z\n1:256:" + std::string(127, '2') +
                  "+1z\n1:256:" + std::string(127, '3') + "+1z\n1:8:~14$\n1:2:~\n");
    Set(texts, kDatabasePathText, WideString(259, 'p'));
    Set(texts, kPrefixText, WideString(259, 'x'));
    Set(texts, kSuffixText, TEXT(""));
    WriteMagneticTexts(kPrinter, texts);
    EXPECT_EQ(key_->Stored(kNames[kDatabasePathText]), "1:520:" + std::string(259, 'p') + "+1z");
    EXPECT_EQ(key_->Stored(kNames[kPrefixText]), "1:254:" + std::string(127, 'x'));
    EXPECT_EQ(key_->Stored(kNames[kSuffixText]), "1:0:");
}

TEST_F(MagneticStoreTest, WhateverIsStoredIsReadWithinItsRoom) {
    const struct {
        const char* name;
        DWORD type;
        std::string bytes;
        std::string track;
        std::string path;
    } cases[] = {
        {"nothing in it", REG_SZ, "", "", ""},
        {"a text with its end", REG_SZ, Units(WideString(TEXT("AB\0"), 3)), "AB", "AB"},
        {"without", REG_SZ, Units(TEXT("AB")), "AB", "AB"},
        {"blanks and quotes", REG_SZ, Units(TEXT(" \"A\"  ")), " \"A\"  ", " \"A\"  "},
        {"a text behind the end", REG_SZ, Units(WideString(TEXT("A\0B"), 3)), "A", "A"},
        {"an odd number of bytes", REG_SZ, Units(TEXT("ABC")).substr(0, 5), "AB", "AB"},
        {"one byte", REG_SZ, "A", "", ""},
        {"bytes", REG_BINARY, Units(TEXT("AB")), "AB", "AB"},
        {"a number", REG_DWORD, Units(TEXT("AB")), "AB", "AB"},
        {"no type", REG_NONE, Units(TEXT("AB")), "AB", "AB"},
        {"127 characters", REG_SZ, Units(WideString(127, 'a')), std::string(127, 'a'),
         std::string(127, 'a')},
        {"128 without an end", REG_SZ, Units(WideString(128, 'b')), std::string(127, 'b'),
         std::string(128, 'b')},
        {"a byte too much", REG_SZ, Units(WideString(128, 'c')) + "c", "", std::string(128, 'c')},
        {"260 without an end", REG_BINARY, Units(WideString(260, 'd')), "", std::string(259, 'd')},
        {"far too much", REG_BINARY, Units(WideString(1000, 'e')), "", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        for (const WCHAR* name : kNames) {
            key_->Store(name, c.type, c.bytes);
        }
        const MagneticTexts texts = Read();
        EXPECT_EQ(Narrow(texts.Texts[kDatabasePathText]), c.path);
        for (int i = kTrack1Text; i <= kSuffixText; ++i) {
            EXPECT_EQ(Narrow(texts.Texts[i]), c.track) << i;
        }
    }
}

TEST_F(MagneticStoreTest, AKeyThatIsMissingIsMadeByReadingOnly) {
    WriteMagneticTexts(kPrinter, {});
    EXPECT_FALSE(key_->IsThere());
    MagneticTexts texts = Read();
    EXPECT_TRUE(key_->IsThere());
    EXPECT_EQ(StoredValues(), "none\nnone\nnone\nnone\nnone\nnone\n");
    for (const auto& text : texts.Texts) {
        EXPECT_EQ(Narrow(text), "");
    }
}

TEST_F(MagneticStoreTest, EachTextComesBackFromItsOwnValue) {
    Read();
    std::mt19937 random(7);
    for (int round = 0; round < 50; ++round) {
        MagneticTexts texts = {};
        for (int i = 0; i < kMagneticTexts; ++i) {
            WideString text(random() % (i == kDatabasePathText ? 260 : 128), 0);
            for (WCHAR& c : text) {
                c = static_cast<WCHAR>(1 + random() % 0xD7FF);
            }
            Set(texts, i, text + (random() % 2 == 0 && text.size() < 120 ? TEXT("  ") : TEXT("")));
        }
        WriteMagneticTexts(kPrinter, texts);
        const MagneticTexts read = Read();
        for (int i = 0; i < kMagneticTexts; ++i) {
            EXPECT_TRUE(WideString(read.Texts[i]) == texts.Texts[i]) << i;
        }
    }
}

}  // namespace
}  // namespace test
