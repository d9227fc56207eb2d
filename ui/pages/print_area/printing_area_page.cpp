// The Printing Area page: a tab for each panel, and on it both sides of the card, each with the
// area that it prints within. The chosen names are the page's until the sheet applies.
#include "ui/pages/print_area/printing_area_page.h"

#include "resources/resource.h"
#include "ui/common/card_side.h"
#include "ui/common/controls.h"
#include "ui/common/language.h"
#include "ui/pages/print_area/area_preview.h"
#include "ui/pages/print_area/print_area_settings.h"

#include <commctrl.h>

#include <array>

namespace {

// ---- Sides and panels ---------------------------------------------------------------------------

/// How a panel is laid onto a side. A side's own bits in a panel's mode.
struct ModeBits {
    BYTE Whole;     ///< everywhere, as the driver does it
    BYTE Designed;  ///< within the chosen area
};

struct SideRow {
    const CardSide& Card;
    ModeBits Bits;
    int Group;
    int Box;
    int Preview;
    int Whole;
    int Designed;
    int Label;
    int List;
    int Edit;

    constexpr std::array<int, 8> Controls() const {
        return {Group, Box, Preview, Whole, Designed, Label, List, Edit};
    }
};

constexpr SideRow kSides[kAreaSides] = {
    {kFront,
     {kFrontGlossy, kFrontDesigned},
     IDC_AREA_FRONT_GROUP,
     IDC_AREA_FRONT,
     IDC_AREA_FRONT_PREVIEW,
     IDC_AREA_FRONT_WHOLE,
     IDC_AREA_FRONT_DESIGNED,
     IDC_AREA_FRONT_LABEL,
     IDC_AREA_FRONT_LIST,
     IDC_AREA_FRONT_EDIT},
    {kBack,
     {kBackGlossy, kBackDesigned},
     IDC_AREA_BACK_GROUP,
     IDC_AREA_BACK,
     IDC_AREA_BACK_PREVIEW,
     IDC_AREA_BACK_WHOLE,
     IDC_AREA_BACK_DESIGNED,
     IDC_AREA_BACK_LABEL,
     IDC_AREA_BACK_LIST,
     IDC_AREA_BACK_EDIT},
};
// Both panels' modes have the same bits.
static_assert(int{kFrontGlossy} == kFrontCmyUnderK && int{kFrontDesigned} == kFrontKOnly);
static_assert(int{kBackGlossy} == kBackCmyUnderK && int{kBackDesigned} == kBackKOnly);

bool PrintsColor(const DevModePrivate& record, const CardSide& side) {
    return (record.ColorSides & side.Bit) != 0;
}

bool PrintsResin(const DevModePrivate& record, const CardSide& side) {
    return (record.ResinOptions & side.ResinMask) != 0 ||
           (record.ResinOptions2 & side.BlackAndWhite) != 0;
}

/// A tab.
struct PanelRow {
    AreaPanel Panel;
    const WCHAR* Title;
    BYTE DevModePrivate::*Mode;
    bool (*IsPrinted)(const DevModePrivate& record, const CardSide& side);
    // English for every user.
    const WCHAR* Whole;
    const WCHAR* Designed;
};

constexpr PanelRow kPanels[] = {
    {kOvercoatPanel, TEXT("YMCO"), &DevModePrivate::OvercoatMode, PrintsColor,
     TEXT("Glossy Overcoat"), TEXT("Designed Overcoat")},
    {kResinPanel, TEXT("Resin K"), &DevModePrivate::ResinKMode, PrintsResin,
     TEXT("Print CMY Under K"), TEXT("Print K Only")},
};

const PanelRow& ShownPanel(HWND dialog) {
    return kPanels[SelectedTab(dialog, IDC_AREA_TAB) == 1 ? 1 : 0];
}

// The side is printed with the panel.
bool IsActive(const PanelRow& panel, const DevModePrivate& record, const CardSide& side) {
    return (record.PrintSides & side.Bit) != 0 && panel.IsPrinted(record, side);
}

// ---- What the record is made to say -------------------------------------------------------------

// Every side has one of the two modes.
void NormalizeMode(BYTE& mode) {
    for (const SideRow& side : kSides) {
        if ((mode & side.Bits.Designed) == 0) {
            mode |= side.Bits.Whole;
        }
    }
}

void ChooseMode(BYTE& mode, const SideRow& side, bool designed) {
    PutBits(mode, side.Bits.Whole, !designed);
    PutBits(mode, side.Bits.Designed, designed);
}

// ---- What is chosen -----------------------------------------------------------------------------

// Of the one page of this kind.
constinit PrintAreaNames names = {};
constinit AreaDesignLibrary designer = {};
constinit AreaChoice choices[kAreaSides] = {
    {kFrontArea, kSides[kFrontArea].List, nullptr},
    {kBackArea, kSides[kBackArea].List, nullptr},
};

void ListAreasOf(HWND dialog, const PanelRow& panel, const DriverContext& context) {
    for (AreaChoice& choice : choices) {
        choice.Name = &names.Names[panel.Panel][choice.Side];
    }
    FillPrintAreaLists(dialog, context, designer, choices);
}

// ---- What the page shows ------------------------------------------------------------------------

// The overcoat of a ribbon without colours is nobody's choice, but it is there on its front.
bool OffersAreas(const PanelRow& panel, const DevModePrivate& record, const SideRow& side) {
    const bool isFixed = panel.Panel == kOvercoatPanel && record.RibbonType == kRibbonK &&
                         side.Card.Bit == kFrontSide;
    return !isFixed && IsActive(panel, record, side.Card);
}

void ShowMode(HWND dialog, BYTE mode, const SideRow& side) {
    const bool isDesigned = (mode & side.Bits.Designed) != 0;
    CheckControl(dialog, side.Whole, !isDesigned);
    CheckControl(dialog, side.Designed, isDesigned);
}

void ShowSide(HWND dialog, const PanelRow& panel, const DevModePrivate& record,
              const SideRow& side) {
    const bool isActive = IsActive(panel, record, side.Card);
    EnableControl(dialog, side.Box, false);
    CheckControl(dialog, side.Box, isActive);
    const bool offersAreas = OffersAreas(panel, record, side);
    EnableControl(dialog, side.List, offersAreas);
    EnableControl(dialog, side.Edit, offersAreas);
    SetDlgItemTextW(dialog, side.Whole, panel.Whole);
    SetDlgItemTextW(dialog, side.Designed, panel.Designed);
    EnableControl(dialog, side.Whole, isActive);
    EnableControl(dialog, side.Designed, isActive);
    ShowMode(dialog, record.*panel.Mode, side);
}

void ShowPanel(HWND dialog, DriverContext& context) {
    const PanelRow& panel = ShownPanel(dialog);
    DevModePrivate& record = context.WorkingDevMode.Private;
    NormalizeMode(record.*panel.Mode);
    for (const SideRow& side : kSides) {
        ShowSide(dialog, panel, record, side);
    }
}

void HideBack(HWND dialog) {
    for (const int control : kSides[kBackArea].Controls()) {
        ShowControl(dialog, control, false);
    }
}

void Paint(HWND dialog, DriverContext& context, HDC target, const RECT&) {
    const DevModeRecord& record = context.WorkingDevMode;
    const PanelRow& panel = ShownPanel(dialog);
    for (const AreaChoice& choice : choices) {
        const SideRow& side = kSides[choice.Side];
        if (choice.Side == kBackArea && context.IsDuplexModel == 0) {
            continue;
        }
        PaintAreaPreview(target, ControlArea(dialog, side.Preview),
                         record.Public.dmOrientation == DMORIENT_PORTRAIT,
                         IsActive(panel, record.Private, side.Card) ? choice.Area : nullptr);
    }
}

// ---- The page -----------------------------------------------------------------------------------

void Complete(HWND dialog, DriverContext& context) {
    ReleasePrintAreas(designer, choices);
    LoadAreaDesigner(designer);
    for (const PanelRow& panel : kPanels) {
        AddTranslatedTab(dialog, IDC_AREA_TAB, panel.Title);
    }
    ShowPanel(dialog, context);
    LoadPrintAreaNames(context.PrinterName, names);
    ListAreasOf(dialog, ShownPanel(dialog), context);
    if (context.IsDuplexModel == 0) {
        HideBack(dialog);
    }
}

void Activate(HWND dialog, DriverContext& context) {
    ShowPanel(dialog, context);
    ListAreasOf(dialog, ShownPanel(dialog), context);
}

void Notify(HWND dialog, DriverContext& context, const NMHDR& notification) {
    if (notification.idFrom == IDC_AREA_TAB && notification.code == TCN_SELCHANGE) {
        Activate(dialog, context);
        for (const SideRow& side : kSides) {
            RedrawAreaPreview(dialog, side.Preview);
        }
    }
}

void Apply(HWND, DriverContext& context) {
    SavePrintAreaNames(context.PrinterName, names);
}

void Choose(HWND dialog, DriverContext& context, const SideRow& side, bool designed) {
    BYTE& mode = context.WorkingDevMode.Private.*ShownPanel(dialog).Mode;
    ChooseMode(mode, side, designed);
    ShowMode(dialog, mode, side);
    TellSheetChanged(dialog);
}

void Command(HWND dialog, DriverContext& context, int control, int notification) {
    for (AreaChoice& choice : choices) {
        const SideRow& side = kSides[choice.Side];
        if (control == side.List && notification == CBN_SELENDOK) {
            TakeAreaSelection(dialog, designer, choice);
            RedrawAreaPreview(dialog, side.Preview);
            TellSheetChanged(dialog);
        } else if (control == side.Edit) {
            if (EditPrintArea(dialog, context, designer, choices, choice)) {
                RedrawAreaPreview(dialog, side.Preview);
            }
        } else if (control == side.Whole || control == side.Designed) {
            if (notification == BN_CLICKED) {
                Choose(dialog, context, side, control == side.Designed);
            }
        }
    }
}

void Close(HWND, DriverContext&) {
    ReleasePrintAreas(designer, choices);
}

constexpr const WCHAR* kWholeTip =
    TEXT("YMCO: the overcoat covers the whole card. Resin K: black is printed over the colors.");
constexpr const WCHAR* kDesignedTip = TEXT(
    "YMCO: the overcoat covers the designed area alone. Resin K: within the designed area "
    "black is printed without colors under it.");
constexpr const WCHAR* kListTip = TEXT(
    "The areas that the designer has for this side of the card. The picture shows the chosen "
    "one.");
constexpr const WCHAR* kEditTip = TEXT("Opens the designer to change areas and to make new ones.");

constexpr Tip kTips[] = {
    {IDC_AREA_FRONT_WHOLE, kWholeTip}, {IDC_AREA_FRONT_DESIGNED, kDesignedTip},
    {IDC_AREA_FRONT_LIST, kListTip},   {IDC_AREA_FRONT_EDIT, kEditTip},
    {IDC_AREA_BACK_WHOLE, kWholeTip},  {IDC_AREA_BACK_DESIGNED, kDesignedTip},
    {IDC_AREA_BACK_LIST, kListTip},    {IDC_AREA_BACK_EDIT, kEditTip},
};

}  // namespace

constinit const Page kPrintingAreaPage = {.Slot = kPrintingAreaSlot,
                                          .Section = kPrintingAreaSection,
                                          .Tips = kTips,
                                          .Complete = Complete,
                                          .Activate = Activate,
                                          .Apply = Apply,
                                          .Command = Command,
                                          .Notify = Notify,
                                          .Paint = Paint,
                                          .Close = Close};
