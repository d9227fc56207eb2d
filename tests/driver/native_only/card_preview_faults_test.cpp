// Painting the Device Options page over and over, and with everything that can fail in it failing:
// nothing stays behind, and no bitmap is loaded twice in one paint.
#include "native_only.h"
#include "options_page.h"
#include "resources/resource.h"
#include "ui/common/controls.h"
#include "ui/common/pictures.h"

namespace {

class CardPreviewFaults : public test::OptionsPageTest {
  protected:
    void SetUp() override {
        test::OptionsPageTest::SetUp();
        Record().PrintSides = 3;
        Record().ColorSides = 3;
        Record().ResinOptions = 3;
        Record().CardType = kChipMagneticCard;
        Open();
        Paint();
    }
    // A row of pixels that all three pictures are in.
    void Paint() {
        RECT row = ControlArea(page_, IDC_FRONT_PREVIEW);
        row.left = 0;
        row.right = 10000;
        row.top = (row.top + row.bottom) / 2;
        row.bottom = row.top + 1;
        InvalidateRect(page_, &row, TRUE);
        UpdateWindow(page_);
    }
};

TEST_F(CardPreviewFaults, AThousandPaintsHoldNothing) {
    const host::Holdings before = host::CurrentHoldings();
    for (int i = 0; i < 1000; ++i) {
        Paint();
    }
    EXPECT_EQ(host::CurrentHoldings(), before);
}

TEST_F(CardPreviewFaults, APaintLoadsABitmapOnce) {
    // The tile, the picture, the text, the chip, the mark of the back and the page order.
    const unsigned before = host::CallCount(host::Call::kResource);
    Paint();
    EXPECT_EQ(host::CallCount(host::Call::kResource) - before, 6u);
}

TEST_F(CardPreviewFaults, WhateverFailsIsNotDrawnAndNothingStays) {
    const host::Holdings before = host::CurrentHoldings();
    for (const host::Call kind : {host::Call::kDrawing, host::Call::kResource}) {
        const unsigned first = host::CallCount(kind);
        Paint();
        const unsigned calls = host::CallCount(kind) - first;
        EXPECT_GT(calls, 5u);
        for (unsigned n = 1; n <= calls; ++n) {
            host::FailCall(kind, n);
            Paint();
            EXPECT_EQ(host::CurrentHoldings(), before) << n;
        }
        host::FailCall(kind, 0);
    }
}

TEST_F(CardPreviewFaults, MorePicturesThanThereArePlacesForAreNotLoaded) {
    PictureSet pictures;
    for (int number = 1; number <= 24; ++number) {
        EXPECT_EQ(pictures.Get(20000 + number), nullptr);
    }
    EXPECT_EQ(pictures.Get(IDB_TILE), nullptr);
}

}  // namespace
