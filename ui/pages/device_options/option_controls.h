// What the controls of the Device Options page show of a record. Nothing here changes it.
#pragma once

#include "ui/pages/device_options/card_options.h"

/// The page's section of the language file.
constexpr const WCHAR* kDeviceOptionSection = TEXT("DeviceOption");

/// Fills the lists of ribbons, cards and thicknesses, and selects the record's. A code that a list
/// lacks shows its first entry.
void FillCardLists(HWND dialog, const DevModePrivate& record);

/// Offers a side's uses of resin up to `last`, and selects what the record says from `precedence`
/// on (see ChosenResin).
void FillResinList(HWND dialog, const DriverContext& context, const CardSide& side,
                   ResinChoice precedence, ResinChoice last = kBlackByYmcK);
/// The same for both sides, with every use.
void FillResinLists(HWND dialog, const DriverContext& context, ResinChoice precedence);
/// Selects anew under a colour ribbon.
void SelectResin(HWND dialog, const DevModePrivate& record, const CardSide& side,
                 ResinChoice precedence);

/// Shows or hides a side's colour box, and its resin list with the label.
void ShowPanels(HWND dialog, const CardSide& side, bool color, bool resin);

/// Shows in everything but the lists and the copies what the record says.
void ShowOptions(HWND dialog, const DriverContext& context);
/// Shows what the model alone decides, and the rest as the template has it.
void ShowModelsControls(HWND dialog, const DriverContext& context);
void ShowCopies(HWND dialog, SHORT copies);
