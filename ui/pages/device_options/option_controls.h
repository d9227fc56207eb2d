// What the controls of the Device Options page show of a record. Nothing here changes it.
#pragma once

#include "resources/resource.h"
#include "ui/common/bound_buttons.h"
#include "ui/pages/device_options/card_options.h"

/// The controls that exist once for each side of the card.
struct SideControls {
    const CardSide& Side;
    int Image;
    int Rotate;
    int Flip;
    int Preview;
    int Color;
    int ResinLabel;
    int Resin;
};
inline constexpr SideControls kFrontControls = {
    .Side = kFront,
    .Image = IDC_FRONT_IMAGE,
    .Rotate = IDC_FRONT_ROTATE,
    .Flip = IDC_FRONT_FLIP,
    .Preview = IDC_FRONT_PREVIEW,
    .Color = IDC_FRONT_COLOR,
    .ResinLabel = IDC_FRONT_RESIN_LABEL,
    .Resin = IDC_FRONT_RESIN,
};
inline constexpr SideControls kBackControls = {
    .Side = kBack,
    .Image = IDC_BACK_IMAGE,
    .Rotate = IDC_BACK_ROTATE,
    .Flip = IDC_BACK_FLIP,
    .Preview = IDC_BACK_PREVIEW,
    .Color = IDC_BACK_COLOR,
    .ResinLabel = IDC_BACK_RESIN_LABEL,
    .Resin = IDC_BACK_RESIN,
};
inline constexpr const SideControls* kSideControls[] = {&kFrontControls, &kBackControls};

/// The boxes and radio buttons that nothing else of the record depends on.
inline constexpr BoundButton kOrientationButtons[] = {
    {IDC_LANDSCAPE, RECORD_FIELD(Public.dmOrientation), ButtonKind::kRadio, DMORIENT_LANDSCAPE},
    {IDC_PORTRAIT, RECORD_FIELD(Public.dmOrientation), ButtonKind::kRadio, DMORIENT_PORTRAIT},
};
inline constexpr BoundButton kPlainButtons[] = {
    {IDC_STANDARD_MODE, RECORD_FIELD(Private.PrintingMode), ButtonKind::kRadio, kStandardMode},
    {IDC_PHOTO_MODE, RECORD_FIELD(Private.PrintingMode), ButtonKind::kRadio, kPremiumPhotoMode},
    {IDC_ORIENTATION_LOCK, RECORD_FIELD(Private.OrientationLock), ButtonKind::kBox},
    {IDC_NO_WHITE_SKIP, RECORD_FIELD(Private.WhiteSkip), ButtonKind::kInverseBox},
    {IDC_PRINT_AS_OTHER_MODEL, RECORD_FIELD(Private.PrintAsOtherModel), ButtonKind::kBox},
    {IDC_SKIP_BLANK_PAGE, RECORD_FIELD(Private.SkipBlankPage), ButtonKind::kBox},
};

/// Fills the lists of ribbons, cards and thicknesses with their names as they are, and selects the
/// record's. A code that a list lacks shows its first entry.
void FillCardLists(HWND dialog, const DevModePrivate& record);

/// Offers a side's uses of resin up to `last`, looked up, and selects the record's (ChosenResin
/// begun at `precedence`).
void FillResinList(HWND dialog, const DriverContext& context, const SideControls& controls,
                   ResinChoice precedence, ResinChoice last = kBlackByYmcK);
/// The same for both sides, with every use.
void FillResinLists(HWND dialog, const DriverContext& context, ResinChoice precedence);
/// Selects the record's use of resin in a list for a colour ribbon.
void SelectResin(HWND dialog, const DevModePrivate& record, const SideControls& controls,
                 ResinChoice precedence);

/// Shows or hides a side's colour box, and its resin list with the label.
void ShowPanels(HWND dialog, const SideControls& controls, bool color, bool resin);

/// Shows what the record says in every control but the lists and the copies.
void ShowOptions(HWND dialog, const DriverContext& context);
/// Shows and hides what the model alone decides, and undoes what an earlier record has hidden.
void ShowModelsControls(HWND dialog, const DriverContext& context);
