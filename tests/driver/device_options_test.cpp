// The Device Options page: what it makes of a record when it opens, and what every choice does to
// the record, to the controls, to the pictures and to the sheet.
#include "options_page.h"
#include "resources/resource.h"
#include "ui/common/language.h"
#include "ui/common/tooltip.h"
#include "ui/pages/device_options/device_options_page.h"

#include <commctrl.h>

namespace test {
namespace {

using Before = void (*)(DevModePrivate&);

// Ribbons by their place in the list.
enum RibbonItem { kYMCKO, kK, kHalf, kYMCKOK, kKO, kYMCKFO };

class DeviceOptionsTest : public OptionsPageTest {};

// ---- Opening ----------------------------------------------------------------------------------

// How the tables' rows read. `before` changes a default record; `options` is what the record says
// then:
//   "sides 3"         PrintSides, as all sides here: 1 the front, 2 the back, 3 both
//   "color 1"         ColorSides
//   "resin 02 00"     ResinOptions and ResinOptions2, hexadecimal
//   "ymc 0 k 1"       BlackByYmcK and KOnlyOnBack
//   "turn 32"         RotateSides, then FlipSides
// `front` and `back` are that side's controls, `kOnly` is the box "K only on Back":
//   "~x . ~. x Text only of 7"
//    |  | |  | the resin list: its selected item and how many it has
//    |  | |  "Color Printing"
//    |  | "Flip"
//    |  "Rotate 180"
//    the side's image
//   A box is "x" checked or "." not; "~" before it: it is disabled; "-": the control is hidden.

TEST_F(DeviceOptionsTest, WhatARecordShows) {
    const struct {
        const char* name;
        ModelFlags model;
        Before before;
        const char* options;
        const char* front;
        const char* back;
        const char* kOnly;
    } cases[] = {
        // clang-format off
        {"defaults", {}, [](DevModePrivate&) {},
         "sides 1 color 1 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x Disable of 7", ". ~. ~. - -", "."},
        {"other families have no flip", kDuplexOnly, [](DevModePrivate&) {},
         "sides 1 color 1 resin 00 00 ymc 0 k 0 turn 00", "x . - x Disable of 7", ". ~. - - -", "."},
        {"no unit for the back", kSimplex, [](DevModePrivate& r) { r.PrintSides = 3; r.KOnlyOnBack = 1; },
         "sides 3 color 1 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x Disable of 7", "- - - - -", "-"},
        {"K only on the back", {}, [](DevModePrivate& r) { r.KOnlyOnBack = 1; r.CardThickness = 1; r.ResinOptions = 0x55; r.ResinOptions2 = 5; },
         "sides 3 color 1 resin 02 00 ymc 0 k 1 turn 00", "~x . ~. ~x -", "~x . ~. - Black by Resin K of 6", "x"},
        {"K only on the back, with a use", {}, [](DevModePrivate& r) { r.KOnlyOnBack = 1; r.ResinOptions = 0xA2; r.BlackByYmcK = 2; },
         "sides 3 color 1 resin A2 00 ymc 2 k 1 turn 00", "~x . ~. ~x -", "~x . ~. - Black by YMC+K of 6", "x"},
        {"K only on the back of a thin card", {}, [](DevModePrivate& r) { r.KOnlyOnBack = 1; r.CardThickness = 0; },
         "sides 1 color 1 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x Disable of 7", "- - - - -", "-"},
        {"K only on the back of an adhesive card", {}, [](DevModePrivate& r) { r.KOnlyOnBack = 1; r.CardType = 5; },
         "sides 1 color 1 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x Disable of 7", "- - - - -", "-"},
        {"K only on the back of a half-panel ribbon", {}, [](DevModePrivate& r) { r.KOnlyOnBack = 1; r.RibbonType = 5; },
         "sides 1 color 1 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x Disable of 7", ". ~. ~. - -", "."},
        {"both sides, turned", {}, [](DevModePrivate& r) { r.PrintSides = 3; r.RotateSides = 3; r.FlipSides = 2; r.TransparentCard = 1; },
         "sides 3 color 1 resin 00 00 ymc 0 k 0 turn 32", "x x . x Disable of 7", "x x x . Disable of 7", "."},
        {"flipped without a transparent card", {}, [](DevModePrivate& r) { r.FlipSides = 3; },
         "sides 1 color 1 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x Disable of 7", ". ~. ~. - -", "."},
        {"a side that is not printed is not turned", {}, [](DevModePrivate& r) { r.PrintSides = 2; r.RotateSides = 3; r.FlipSides = 3; r.TransparentCard = 1; },
         "sides 2 color 1 resin 00 00 ymc 0 k 0 turn 22", ". ~. ~. - -", "x x x . Disable of 7", "."},
        {"black alone has no colour", {}, [](DevModePrivate& r) { r.PrintSides = 3; r.ColorSides = 3; r.ResinOptions = 0x04; r.ResinOptions2 = 2; },
         "sides 3 color 0 resin 04 02 ymc 0 k 0 turn 00", "x . ~. . Resin Dither of 7", "x . ~. . Black/White of 7", "."},
        {"the first option of several", {}, [](DevModePrivate& r) { r.PrintSides = 3; r.ResinOptions = 0xFF; r.BlackByYmcK = 1; },
         "sides 3 color 1 resin FF 00 ymc 1 k 0 turn 00", "x . ~. x Black by YMC+K of 7", "x . ~. . Black by Resin K of 7", "."},
        {"a resin ribbon", {}, [](DevModePrivate& r) { r.RibbonType = 1; },
         "sides 1 color 1 resin 03 00 ymc 0 k 0 turn 00", "x . ~. - Black/White of 2", ". ~. ~. - -", "-"},
        {"a resin ribbon, dithered", {}, [](DevModePrivate& r) { r.RibbonType = 3; r.PrintSides = 3; r.ResinOptions = 0x0C; },
         "sides 3 color 1 resin 0C 00 ymc 0 k 0 turn 00", "x . ~. - Resin Dither of 2", "x . ~. - Resin Dither of 2", "-"},
        {"grey on a rewritable card", kKP43, [](DevModePrivate& r) { r.RibbonType = 1; r.ResinOptions2 = 4; },
         "sides 1 color 1 resin 02 04 ymc 0 k 0 turn 00", "x . - - Resin Gray of 3", "- - - - -", "-"},
        {"a ribbon without resin", {}, [](DevModePrivate& r) { r.RibbonType = 2; r.PrintSides = 3; },
         "sides 3 color 1 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x -", "x . ~. . -", "-"},
        {"a ribbon of no class", {}, [](DevModePrivate& r) { r.RibbonType = 7; },
         "sides 1 color 1 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x  of 0", ". ~. ~. - -", "-"},
        {"a ribbon without options", {}, [](DevModePrivate& r) { r.RibbonType = 11; },
         "sides 1 color 1 resin 00 00 ymc 0 k 0 turn 00", "x . ~. - -", ". ~. ~. - -", "-"},
        // clang-format on
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        BuildDefaultDevMode(&context_.WorkingDevMode, nullptr, nullptr);
        SetModel(c.model);
        c.before(Record());
        Open();
        EXPECT_EQ(Options(), c.options);
        EXPECT_EQ(Looks(kFrontControls), c.front);
        EXPECT_EQ(Looks(kBackControls), c.back);
        EXPECT_EQ(Looks(IDC_K_ONLY_ON_BACK), c.kOnly);
    }
    EXPECT_EQ(TakeChanges(), 0) << "opening is no change";
}

// ---- Choices ----------------------------------------------------------------------------------

// As in the table above; `redrawn` are the pictures that are drawn anew: the side's previews and
// the page order.
struct Choice {
    const char* name;
    ModelFlags model;
    Before before;
    int control;
    int item;  ///< of a list
    const char* options;
    const char* front;
    const char* back;
    const char* kOnly;
    const char* redrawn;
};

// clang-format off
const Choice kChoices[] = {
    {"YMCKOK", {}, [](DevModePrivate&) {}, IDC_RIBBON, kYMCKOK,
     "sides 3 color 1 resin 02 00 ymc 0 k 0 turn 00", "x . ~. x Disable of 7", "x . ~. . Black by Resin K of 7", "-", "front back"},
    {"YMCKOK on a thin card", {}, [](DevModePrivate& r) { r.CardThickness = 0; }, IDC_RIBBON, kYMCKOK,
     "sides 1 color 3 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x Disable of 7", "- - - - -", "-", "front back"},
    {"YMCKOK without a unit for the back", kSimplex, [](DevModePrivate& r) { r.RibbonType = 1; }, IDC_RIBBON, kYMCKOK,
     "sides 1 color 3 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x Disable of 7", "- - - - -", "-", "front back"},
    {"YMCKO after all", {}, [](DevModePrivate& r) { r.RibbonType = 4; r.PrintSides = 3; r.ResinOptions = 0x16; r.ResinOptions2 = 7; r.RotateSides = 3; }, IDC_RIBBON, kYMCKO,
     "sides 1 color 3 resin 00 04 ymc 0 k 0 turn 30", "x x ~. x Disable of 7", ". ~. ~. - -", ".", "front back"},
    {"YMCKO on a thin card", {}, [](DevModePrivate& r) { r.CardThickness = 0; }, IDC_RIBBON, kYMCKO,
     "sides 1 color 3 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x Disable of 7", "- - - - -", "-", "front back"},
    {"1/2 YMCKO ends K only", {}, [](DevModePrivate& r) { r.KOnlyOnBack = 1; }, IDC_RIBBON, kHalf,
     "sides 1 color 3 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x Disable of 7", ". ~. ~. - -", ".", "front back"},
    {"K", {}, [](DevModePrivate& r) { r.PrintSides = 3; r.ResinOptions2 = 7; }, IDC_RIBBON, kK,
     "sides 1 color 0 resin 03 00 ymc 0 k 0 turn 00", "x . ~. - Black/White of 2", ". ~. ~. - -", "-", "front back"},
    {"KO on a rewritable card's model", kKP43, [](DevModePrivate&) {}, IDC_RIBBON, kKO,
     "sides 1 color 0 resin 03 00 ymc 0 k 0 turn 00", "x . - - Black/White of 3", "- - - - -", "-", "front back"},
    {"no ribbon selected", {}, [](DevModePrivate& r) { r.RibbonType = 1; }, IDC_RIBBON, -1,
     "sides 1 color 3 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x Disable of 7", ". ~. ~. - -", ".", "front back"},
    {"an adhesive card ends K only", {}, [](DevModePrivate& r) { r.KOnlyOnBack = 1; r.RotateSides = 3; r.FlipSides = 3; r.TransparentCard = 1; }, IDC_CARD_TYPE, 5,
     "sides 1 color 1 resin 02 00 ymc 0 k 0 turn 11", "x x x x Disable of 7", "- - - - -", "-", "front back order"},
    {"a blank card after an adhesive one", kDuplexOnly, [](DevModePrivate& r) { r.CardType = 5; }, IDC_CARD_TYPE, 0,
     "sides 1 color 1 resin 00 00 ymc 0 k 0 turn 00", "x . - x Disable of 7", ". ~. - - -", ".", "front back order"},
    {"a blank card without a unit for the back", kSimplex, [](DevModePrivate& r) { r.CardType = 5; }, IDC_CARD_TYPE, 0,
     "sides 1 color 1 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x Disable of 7", "- - - - -", "-", "front back order"},
    {"a thin card ends the back", {}, [](DevModePrivate& r) { r.PrintSides = 3; r.RotateSides = 2; }, IDC_THICKNESS, 0,
     "sides 1 color 1 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x Disable of 7", "- - - - -", "-", ""},
    {"another thickness", {}, [](DevModePrivate& r) { r.PrintSides = 3; }, IDC_THICKNESS, 3,
     "sides 3 color 1 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x Disable of 7", "x . ~. . Disable of 7", ".", ""},
    {"a thicker card", {}, [](DevModePrivate& r) { r.CardThickness = 0; }, IDC_THICKNESS, 1,
     "sides 1 color 1 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x Disable of 7", ". ~. ~. - -", ".", ""},
    {"a thicker adhesive card", {}, [](DevModePrivate& r) { r.CardThickness = 0; r.CardType = 5; }, IDC_THICKNESS, 1,
     "sides 1 color 1 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x Disable of 7", "- - - - -", "-", ""},
    {"only K on the back", {}, [](DevModePrivate& r) { r.ResinOptions = 0x10; r.BlackByYmcK = 3; }, IDC_K_ONLY_ON_BACK, 0,
     "sides 3 color 1 resin 02 00 ymc 0 k 1 turn 00", "~x . ~. ~x -", "~x . ~. - Black by Resin K of 5", "x", "front back order"},
    {"only K on the back, with a use", {}, [](DevModePrivate& r) { r.ResinOptions = 0x20; r.ResinOptions2 = 5; }, IDC_K_ONLY_ON_BACK, 0,
     "sides 3 color 1 resin 20 04 ymc 0 k 1 turn 00", "~x . ~. ~x -", "~x . ~. - Text only of 5", "x", "front back order"},
    {"not only K on the back", {}, [](DevModePrivate& r) { r.KOnlyOnBack = 1; r.ResinOptions = 0x80; }, IDC_K_ONLY_ON_BACK, 0,
     "sides 3 color 1 resin 80 00 ymc 0 k 0 turn 00", "x . ~. x Disable of 7", "x . ~. . Disable doing color printing of 7", ".", ""},
    {"a transparent card", {}, [](DevModePrivate& r) { r.PrintSides = 1; }, IDC_TRANSPARENT_CARD, 0,
     "sides 1 color 1 resin 00 00 ymc 0 k 0 turn 00", "x . . x Disable of 7", ". ~. ~. - -", ".", ""},
    {"no transparent card", {}, [](DevModePrivate& r) { r.TransparentCard = 1; r.FlipSides = 1; }, IDC_TRANSPARENT_CARD, 0,
     "sides 1 color 1 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x Disable of 7", ". ~. ~. - -", ".", ""},
    {"no front", {}, [](DevModePrivate& r) { r.RotateSides = 1; r.ResinOptions = 0x10; }, IDC_FRONT_IMAGE, 0,
     "sides 0 color 1 resin 10 00 ymc 0 k 0 turn 00", ". ~. ~. - -", ". ~. ~. - -", ".", "front order"},
    {"a front without anything", {}, [](DevModePrivate& r) { r.PrintSides = 0; r.ColorSides = 0; }, IDC_FRONT_IMAGE, 0,
     "sides 1 color 1 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x Disable of 7", ". ~. ~. - -", ".", "front order"},
    {"a front with resin", {}, [](DevModePrivate& r) { r.PrintSides = 0; r.ColorSides = 0; r.ResinOptions = 0x10; }, IDC_FRONT_IMAGE, 0,
     "sides 1 color 0 resin 10 00 ymc 0 k 0 turn 00", "x . ~. . Text only of 7", ". ~. ~. - -", ".", "front order"},
    {"a back that can be flipped", {}, [](DevModePrivate& r) { r.TransparentCard = 1; }, IDC_BACK_IMAGE, 0,
     "sides 3 color 3 resin 00 00 ymc 0 k 0 turn 00", "x . . x Disable of 7", "x . . x Disable of 7", ".", "back order"},
    {"the back of a resin ribbon", {}, [](DevModePrivate& r) { r.RibbonType = 1; r.ResinOptions = 1; }, IDC_BACK_IMAGE, 0,
     "sides 3 color 1 resin 03 00 ymc 0 k 0 turn 00", "x . ~. - Black/White of 2", "x . ~. - Black/White of 2", "-", "back order"},
    {"the back of a ribbon without resin", {}, [](DevModePrivate& r) { r.RibbonType = 2; }, IDC_BACK_IMAGE, 0,
     "sides 3 color 3 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x -", "x . ~. x -", "-", "back order"},
    {"the back of a ribbon with fixed resin", {}, [](DevModePrivate& r) { r.RibbonType = 8; }, IDC_BACK_IMAGE, 0,
     "sides 3 color 1 resin 02 00 ymc 0 k 0 turn 00", "x . ~. x  of 0", "x . ~. - -", "-", "back order"},
    {"the back of a ribbon of no class", {}, [](DevModePrivate& r) { r.RibbonType = 13; }, IDC_BACK_IMAGE, 0,
     "sides 3 color 1 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x  of 0", "x . ~. - -", "-", "back order"},
    {"no colour leaves black", {}, [](DevModePrivate&) {}, IDC_FRONT_COLOR, 0,
     "sides 1 color 0 resin 01 00 ymc 0 k 0 turn 00", "x . ~. . Black by Resin K of 7", ". ~. ~. - -", ".", "front"},
    {"no colour, text still", {}, [](DevModePrivate& r) { r.ResinOptions = 0x10; }, IDC_FRONT_COLOR, 0,
     "sides 1 color 0 resin 10 00 ymc 0 k 0 turn 00", "x . ~. . Text only of 7", ". ~. ~. - -", ".", "front"},
    {"no colour to mix black of", {}, [](DevModePrivate& r) { r.PrintSides = 2; r.ColorSides = 2; r.ResinOptions = 2; r.BlackByYmcK = 2; }, IDC_BACK_COLOR, 0,
     "sides 2 color 0 resin 02 00 ymc 0 k 0 turn 00", ". ~. ~. - -", "x . ~. . Black by Resin K of 7", ".", "back"},
    {"colour ends dither", {}, [](DevModePrivate& r) { r.ResinOptions = 4; r.ColorSides = 0; }, IDC_FRONT_COLOR, 0,
     "sides 1 color 1 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x Disable of 7", ". ~. ~. - -", ".", "front"},
    {"colour on a black back", {}, [](DevModePrivate& r) { r.RibbonType = 4; r.PrintSides = 3; r.ResinOptions = 2; }, IDC_BACK_COLOR, 0,
     "sides 3 color 3 resin 02 00 ymc 0 k 0 turn 00", "x . ~. x Disable of 7", "x . ~. x Black by Resin K of 7", "-", "back"},
    {"front: text only", {}, [](DevModePrivate& r) { r.ResinOptions = 0xA1; r.BlackByYmcK = 1; r.ColorSides = 0; }, IDC_FRONT_RESIN, 2,
     "sides 1 color 1 resin B0 00 ymc 0 k 0 turn 00", "x . ~. x Text only of 7", ". ~. ~. - -", ".", "front"},
    {"front: black/white", {}, [](DevModePrivate& r) { r.ResinOptions = 0x10; }, IDC_FRONT_RESIN, 4,
     "sides 1 color 0 resin 00 01 ymc 0 k 0 turn 00", "x . ~. . Black/White of 7", ". ~. ~. - -", ".", "front"},
    {"front: black by YMC+K", {}, [](DevModePrivate& r) { r.ResinOptions2 = 1; }, IDC_FRONT_RESIN, 6,
     "sides 1 color 1 resin 01 00 ymc 1 k 0 turn 00", "x . ~. x Black by YMC+K of 7", ". ~. ~. - -", ".", "front"},
    {"front: disable", {}, [](DevModePrivate& r) { r.ResinOptions = 4; }, IDC_FRONT_RESIN, 0,
     "sides 1 color 1 resin 00 00 ymc 0 k 0 turn 00", "x . ~. x Disable of 7", ". ~. ~. - -", ".", "front"},
    {"back: dither", {}, [](DevModePrivate& r) { r.PrintSides = 3; r.ColorSides = 3; r.ResinOptions = 0x55; }, IDC_BACK_RESIN, 5,
     "sides 3 color 1 resin 5D 00 ymc 0 k 0 turn 00", "x . ~. x Black by Resin K of 7", "x . ~. . Resin Dither of 7", ".", "back"},
    {"back: the same item while only K is there", {}, [](DevModePrivate& r) { r.KOnlyOnBack = 1; }, IDC_BACK_RESIN, 5,
     "sides 3 color 3 resin 02 00 ymc 2 k 1 turn 00", "~x . ~. ~x -", "~x . ~. - Black by YMC+K of 6", "x", "back"},
    {"back: nothing selected while only K is there", {}, [](DevModePrivate& r) { r.KOnlyOnBack = 1; r.ResinOptions = 8; }, IDC_BACK_RESIN, -1,
     "sides 3 color 3 resin 02 00 ymc 0 k 1 turn 00", "~x . ~. ~x -", "~x . ~. -  of 6", "x", "back"},
    {"grey", kKP43, [](DevModePrivate& r) { r.RibbonType = 1; r.ResinOptions2 = 1; }, IDC_FRONT_RESIN, 2,
     "sides 1 color 1 resin 02 04 ymc 0 k 0 turn 00", "x . - - Resin Gray of 3", "- - - - -", "-", "front"},
    {"no grey", kKP43, [](DevModePrivate& r) { r.RibbonType = 1; r.ResinOptions2 = 4; }, IDC_FRONT_RESIN, 1,
     "sides 1 color 1 resin 06 00 ymc 0 k 0 turn 00", "x . - - Resin Dither of 3", "- - - - -", "-", "front"},
    {"dither on the back of a resin ribbon", {}, [](DevModePrivate& r) { r.RibbonType = 3; r.PrintSides = 3; }, IDC_BACK_RESIN, 1,
     "sides 3 color 1 resin 09 00 ymc 0 k 0 turn 00", "x . ~. - Black/White of 2", "x . ~. - Resin Dither of 2", "-", "back"},
    {"rotate", {}, [](DevModePrivate& r) { r.PrintSides = 3; r.RotateSides = 1; }, IDC_BACK_ROTATE, 0,
     "sides 3 color 1 resin 00 00 ymc 0 k 0 turn 30", "x x ~. x Disable of 7", "x x ~. . Disable of 7", ".", "back order"},
    {"flip", {}, [](DevModePrivate& r) { r.TransparentCard = 1; }, IDC_FRONT_FLIP, 0,
     "sides 1 color 1 resin 00 00 ymc 0 k 0 turn 01", "x . x x Disable of 7", ". ~. ~. - -", ".", "front"},
};
// clang-format on

TEST_F(DeviceOptionsTest, WhatAChoiceDoes) {
    for (const Choice& c : kChoices) {
        SCOPED_TRACE(c.name);
        BuildDefaultDevMode(&context_.WorkingDevMode, nullptr, nullptr);
        SetModel(c.model);
        c.before(Record());
        Open();
        TakeChanges();
        MarkPictures();
        if (c.control == IDC_RIBBON || c.control == IDC_CARD_TYPE || c.control == IDC_THICKNESS ||
            c.control == IDC_FRONT_RESIN || c.control == IDC_BACK_RESIN) {
            Choose(c.control, c.item);
        } else {
            Click(c.control);
        }
        EXPECT_EQ(TakeChanges(), 1);
        EXPECT_EQ(Options(), c.options);
        EXPECT_EQ(Looks(kFrontControls), c.front);
        EXPECT_EQ(Looks(kBackControls), c.back);
        EXPECT_EQ(Looks(IDC_K_ONLY_ON_BACK), c.kOnly);
        EXPECT_EQ(Redrawn(), c.redrawn);
    }
}

TEST_F(DeviceOptionsTest, PlainBoxesAndRadioButtons) {
    constexpr RecordField kOrientation = RECORD_FIELD(Public.dmOrientation);
    constexpr RecordField kLock = RECORD_FIELD(Private.OrientationLock);
    constexpr RecordField kWhite = RECORD_FIELD(Private.WhiteSkip);
    constexpr RecordField kMode = RECORD_FIELD(Private.PrintingMode);
    const struct {
        int control;
        RecordField field;
        DWORD before, after;
        const char* looks;
        const char* redrawn;
    } cases[] = {
        {IDC_PORTRAIT, kOrientation, DMORIENT_LANDSCAPE, DMORIENT_PORTRAIT, "x",
         "front back order"},
        {IDC_LANDSCAPE, kOrientation, DMORIENT_PORTRAIT, DMORIENT_LANDSCAPE, "x",
         "front back order"},
        {IDC_ORIENTATION_LOCK, kLock, 0, 1, "x", ""},
        {IDC_ORIENTATION_LOCK, kLock, 7, 0, ".", ""},
        {IDC_NO_WHITE_SKIP, kWhite, 1, 0, "x", ""},
        {IDC_NO_WHITE_SKIP, kWhite, 0, 1, ".", ""},
        {IDC_SKIP_BLANK_PAGE, RECORD_FIELD(Private.SkipBlankPage), 0, 1, "-", ""},
        {IDC_PRINT_AS_OTHER_MODEL, RECORD_FIELD(Private.PrintAsOtherModel), 2, 0, "-", ""},
        {IDC_STANDARD_MODE, kMode, 0, 1, "-", ""},
        {IDC_PHOTO_MODE, kMode, 1, 0, "-", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.control);
        WriteField(context_.WorkingDevMode, c.field, c.before);
        Open();
        TakeChanges();
        MarkPictures();
        Click(c.control);
        EXPECT_EQ(TakeChanges(), 1);
        EXPECT_EQ(ReadField(context_.WorkingDevMode, c.field), c.after);
        EXPECT_EQ(Looks(c.control), c.looks);
        EXPECT_EQ(Redrawn(), c.redrawn);
    }
}

TEST_F(DeviceOptionsTest, WhatOnlySomeModelsShow) {
    const struct {
        ModelFlags model;
        bool choosesCard;
        bool transparent;
        bool backPreview;
    } cases[] = {
        {{}, true, true, true},        {{.kp49 = 1}, true, false, true},
        {kSimplex, true, true, false}, {kDuplexOnly, true, false, true},
        {kKP43, false, false, false},  {{.duplex = 1, .kp41 = 0, .kp43 = 1}, false, false, false},
    };
    for (const auto& c : cases) {
        SetModel(c.model);
        Record().CardThickness = kThickness08;
        Open();
        for (int control : {IDC_RIBBON_LABEL, IDC_RIBBON, IDC_CARD_TYPE_LABEL, IDC_CARD_TYPE}) {
            EXPECT_EQ(IsShown(control), c.choosesCard) << control;
        }
        EXPECT_EQ(IsShown(IDC_TRANSPARENT_CARD), c.transparent);
        EXPECT_EQ(IsShown(IDC_BACK_PREVIEW), c.backPreview);
        EXPECT_EQ(IsShown(IDC_BACK_GROUP), c.model.duplex != 0);
        EXPECT_EQ(Looks(IDC_THICKNESS), "0.8 mm of 4");
        Choose(IDC_THICKNESS, kThickness03);
        EXPECT_EQ(IsShown(IDC_BACK_GROUP), c.backPreview)
            << "without it there is nothing left in it";
    }
}

TEST_F(DeviceOptionsTest, CodesThatAListLacksShowItsFirstEntryAndStay) {
    Record().RibbonType = 9;
    Record().CardType = 77;
    Record().CardThickness = 5;
    Paper().dmOrientation = 0;
    Open();
    EXPECT_EQ(Looks(IDC_RIBBON), "YMCKO of 6");
    EXPECT_EQ(Looks(IDC_CARD_TYPE), "Blank Card of 6");
    EXPECT_EQ(Looks(IDC_THICKNESS), " of 4");
    EXPECT_EQ(Looks(IDC_LANDSCAPE), "x");
    EXPECT_EQ(Paper().dmOrientation, DMORIENT_LANDSCAPE);
    EXPECT_EQ(Record().RibbonType, 9);
    EXPECT_EQ(Record().CardType, 77);
    EXPECT_EQ(Record().CardThickness, 5);
    EXPECT_EQ(Looks(IDC_K_ONLY_ON_BACK), ".") << "that ribbon offers it";
}

TEST_F(DeviceOptionsTest, NotificationsOfOtherKindsChangeNothing) {
    Open();
    TakeChanges();
    const std::string before = Options() + LooksOfAll();
    const struct {
        int control;
        WORD notification;
    } cases[] = {
        {IDC_RIBBON, CBN_SELCHANGE}, {IDC_CARD_TYPE, CBN_CLOSEUP}, {IDC_FRONT_RESIN, CBN_DROPDOWN},
        {IDC_COPIES, EN_UPDATE},     {IDC_COPIES, EN_KILLFOCUS},   {IDC_PAGE_ORDER, STN_CLICKED},
        {4711, BN_CLICKED}};
    for (const auto& [control, notification] : cases) {
        SendMessageW(page_, WM_COMMAND, MAKEWPARAM(control, notification), 0);
    }
    EXPECT_EQ(TakeChanges(), 0);
    EXPECT_EQ(Options() + LooksOfAll(), before);
}

TEST_F(DeviceOptionsTest, Copies) {
    Paper().dmCopies = 9998;
    Open();
    HWND edit = GetDlgItem(page_, IDC_COPIES);
    HWND arrows = GetDlgItem(page_, IDC_COPIES_SCROLL);
    TakeChanges();
    EXPECT_EQ(TextOf(edit), "9998");
    EXPECT_EQ(SendMessageW(edit, EM_GETLIMITTEXT, 0, 0), 4);
    const struct {
        WORD request;
        SHORT copies;
        bool told;
    } steps[] = {{SB_LINEUP, 9999, true},
                 {SB_LINEUP, 9999, true},
                 {SB_LINEDOWN, 9998, true},
                 {SB_ENDSCROLL, 9998, false},
                 {SB_PAGEUP, 9998, false}};
    for (const auto& [request, copies, told] : steps) {
        SendMessageW(page_, WM_VSCROLL, request, reinterpret_cast<LPARAM>(arrows));
        EXPECT_EQ(Paper().dmCopies, copies);
        EXPECT_EQ(TextOf(edit), std::to_string(copies));
        EXPECT_EQ(GetScrollPos(arrows, SB_CTL), copies);
        EXPECT_EQ(TakeChanges() > 0, told) << request;
    }
    SendMessageW(page_, WM_VSCROLL, SB_LINEDOWN, reinterpret_cast<LPARAM>(edit));
    EXPECT_EQ(Paper().dmCopies, 9998) << "another control's";
    SetWindowTextW(edit, TEXT("12"));
    EXPECT_EQ(Paper().dmCopies, 12);
    EXPECT_EQ(GetScrollPos(arrows, SB_CTL), 12);
    EXPECT_GT(TakeChanges(), 0);
    SendMessageW(edit, WM_KEYDOWN, VK_UP, 1);
    EXPECT_EQ(Paper().dmCopies, 13);
    SendMessageW(page_, WM_VSCROLL, SB_LINEDOWN, reinterpret_cast<LPARAM>(arrows));
    EXPECT_EQ(Paper().dmCopies, 12);
}

// Whatever section another page has left.
TEST_F(DeviceOptionsTest, ListsAreTranslatedAlsoWhenTheyAreFilledAnew) {
    WriteWideText(LanguageFilePath, TEXT("[DeviceOption]\r\nText only=Nur Text\r\nK=Schwarz\r\n"
                                         "Color Printing=Farbe\r\n0.8 mm=0,8 mm\r\n"
                                         "Adhesive Card=Klebekarte\r\nResin Dither=Raster\r\n"));
    Record().ResinOptions = 0x10;
    Open();
    EXPECT_EQ(Looks(IDC_FRONT_RESIN), "Nur Text of 7");
    EXPECT_EQ(Looks(IDC_THICKNESS), "0,8 mm of 4");
    EXPECT_EQ(TextOf(Item(IDC_FRONT_COLOR)), "Farbe");
    Choose(IDC_RIBBON, kK);
    EXPECT_EQ(Looks(IDC_RIBBON), "Schwarz of 6");
    SetSection(TEXT("Tools"));
    Choose(IDC_RIBBON, kYMCKO);
    Choose(IDC_FRONT_RESIN, 2);
    EXPECT_EQ(Looks(IDC_FRONT_RESIN), "Nur Text of 7");
    // The record is replaced.
    BuildDefaultDevMode(&context_.WorkingDevMode, nullptr, TEXT("Mirv KP-430e"));
    SetSection(TEXT("Import/Export"));
    FillPage(kDeviceOptionsPage, context_);
    EXPECT_EQ(Looks(IDC_RIBBON), "Schwarz of 6");
    EXPECT_EQ(Looks(IDC_CARD_TYPE), "Klebekarte of 6");
    EXPECT_EQ(Looks(IDC_THICKNESS), "0,8 mm of 4");
    EXPECT_EQ(Looks(IDC_FRONT_RESIN), "Raster of 2");
    EXPECT_EQ(TextOf(Item(IDC_FRONT_COLOR)), "Farbe");
}

TEST_F(DeviceOptionsTest, ACardThatEndsKOnlyOnBackLeavesTheBackEveryUse) {
    const auto chooseCard = [&](int card) { Choose(IDC_CARD_TYPE, card); };
    const auto chooseThickness = [&](int thickness) { Choose(IDC_THICKNESS, thickness); };
    Open();
    Click(IDC_K_ONLY_ON_BACK);
    chooseCard(kAdhesiveCard);
    chooseCard(kBlankCard);
    Click(IDC_BACK_IMAGE);
    EXPECT_EQ(Looks(IDC_BACK_RESIN), "Black by Resin K of 7");
    Choose(IDC_BACK_RESIN, 2);
    EXPECT_EQ(Looks(IDC_BACK_RESIN), "Text only of 7");
    EXPECT_EQ(Record().ResinOptions, kBackTextOnly);
    Click(IDC_K_ONLY_ON_BACK);
    chooseThickness(kThickness03);
    chooseThickness(kThickness08);
    Click(IDC_BACK_IMAGE);
    EXPECT_EQ(Looks(IDC_BACK_RESIN), "Text only of 7");
}

TEST_F(DeviceOptionsTest, AReplacedRecordIsShown) {
    Record().CardThickness = 0;
    Open();
    ASSERT_EQ(context_.PageWindows[kDeviceOptionsSlot], page_);
    BuildDefaultDevMode(&context_.WorkingDevMode, nullptr, nullptr);
    Record().PrintSides = 3;
    Record().RibbonType = kRibbonYMCKOK;
    Paper().dmCopies = 7;
    TakeChanges();
    FillPage(kDeviceOptionsPage, context_);
    EXPECT_EQ(TakeChanges(), 0) << "filling a page is no change";
    const std::string refreshed = LooksOfAll();
    Open();
    EXPECT_EQ(refreshed, LooksOfAll());
    EXPECT_EQ(TextOf(GetDlgItem(page_, IDC_COPIES)), "7");
    DestroyWindow(std::exchange(page_, nullptr));
    EXPECT_EQ(context_.PageWindows[kDeviceOptionsSlot], nullptr);
}

TEST_F(DeviceOptionsTest, ASideSwitchedOnUnderARibbonOfNoClassKeepsItsPanelsHidden) {
    Record().RibbonType = 7;
    Open();
    EXPECT_NE(Looks(IDC_FRONT_COLOR), "-");
    Click(IDC_FRONT_IMAGE);
    Click(IDC_FRONT_IMAGE);
    Click(IDC_FRONT_ROTATE);
    EXPECT_EQ(Looks(IDC_FRONT_COLOR), "-");
    EXPECT_EQ(Looks(IDC_FRONT_RESIN), "-");
    EXPECT_EQ(Record().ResinOptions, kFrontBlackByResin);
    FillPage(kDeviceOptionsPage, context_);
    EXPECT_NE(Looks(IDC_FRONT_COLOR), "-");
}

TEST_F(DeviceOptionsTest, TheTooltipWindowGoesWithTheUsersHelpAndWithThePage) {
    Open();
    const auto tooltip = [] { return FindWindowExW(nullptr, nullptr, TOOLTIPS_CLASSW, nullptr); };
    EXPECT_NE(tooltip(), nullptr) << "the page's own tips";
    for (const UINT message : {WM_HELP, WM_DESTROY}) {
        CreateSharedTooltip(page_);
        EXPECT_NE(tooltip(), nullptr);
        SendMessageW(page_, message, 0, 0);
        EXPECT_EQ(tooltip(), nullptr) << message;
    }
}

}  // namespace
}  // namespace test
