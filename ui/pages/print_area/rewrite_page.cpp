// The Rewrite page: rewritable cards: their energies, what is erased of them, and their erase job.
// Its sliders hold the energies from the page's opening on; the record gets them when the sheet
// applies.
#include "ui/pages/print_area/rewrite_page.h"

#include "resources/resource.h"
#include "ui/common/bound_buttons.h"
#include "ui/common/controls.h"
#include "ui/common/energy_slider.h"
#include "ui/common/language.h"
#include "ui/common/pictures.h"
#include "ui/pages/print_area/area_preview.h"
#include "ui/pages/print_area/erase_job.h"
#include "ui/pages/print_area/print_area_settings.h"

namespace {

// ---- Choices ------------------------------------------------------------------------------------

// clang-format off
constexpr BoundButton kButtons[] = {
    {IDC_ERASE_BEFORE_WRITE, RECORD_FIELD(Private.CardHandlingFlags), ButtonKind::kBox, kEraseBeforeWrite, kEraseBeforeWrite},
    {IDC_QUICK_ERASE, RECORD_FIELD(Private.CardHandlingFlags), ButtonKind::kBox, kQuickErase, kQuickErase},
    {IDC_ERASE_STRIPE, RECORD_FIELD(Private.EraseAreaMode), ButtonKind::kRadio, kEraseStripe},
    {IDC_ERASE_CARD, RECORD_FIELD(Private.EraseAreaMode), ButtonKind::kRadio, kEraseWholeCard},
};
// clang-format on

// A code that is none stays until the user chooses, beside the first choice.
void ShowChoices(HWND dialog, const DevModeRecord& record) {
    ShowButtons(dialog, record, kButtons);
    CheckControl(dialog, IDC_ERASE_STRIPE, record.Private.EraseAreaMode != kEraseWholeCard);
}

// ---- Energies -----------------------------------------------------------------------------------

struct EnergyRow {
    ValueSlider Bar;
    EnergyEntries Entries;
};
constexpr ValueSlider kEraseBar = EnergyBar(IDC_ERASE_ENERGY, IDC_ERASE_ENERGY_VALUE, 10);
constexpr EnergyRow kEnergies[] = {
    {EnergyBar(IDC_WRITE_ENERGY, IDC_WRITE_ENERGY_VALUE, 10),
     {RECORD_FIELD(Private.EnergyTables10[4])}},
    {kEraseBar, {RECORD_FIELD(Private.EraseEnergyTable)}},
};

void ShowEnergies(HWND dialog, const DevModeRecord& record) {
    for (const EnergyRow& row : kEnergies) {
        PrepareSliders(dialog, {&row.Bar, 1});
        ShowEnergy(dialog, row.Bar, record, row.Entries);
    }
}

// ---- The designed area --------------------------------------------------------------------------

// Of the one page of this kind.
constinit AreaName areaName = {};
constinit AreaDesignLibrary designer = {};
constinit AreaChoice area = {kFrontArea, IDC_ERASE_AREA_LIST, &areaName};

void CloseArea(HWND, DriverContext&) {
    ReleasePrintAreas(designer, {&area, 1});
}

void ListAreas(HWND dialog, DriverContext& context) {
    FillPrintAreaLists(dialog, context, designer, {&area, 1});
}

void OpenArea(HWND dialog, DriverContext& context) {
    CloseArea(dialog, context);
    LoadEraseAreaName(context.PrinterName, areaName);
    LoadAreaDesigner(designer);
    ListAreas(dialog, context);
}

void ChooseArea(HWND dialog) {
    TakeAreaSelection(dialog, designer, area);
    RedrawAreaPreview(dialog, IDC_ERASE_AREA_PREVIEW);
    TellSheetChanged(dialog);
}

void EditArea(HWND dialog, const DriverContext& context) {
    if (EditPrintArea(dialog, context, designer, {&area, 1}, area, SessionKey::kMadeWhenMissing)) {
        RedrawAreaPreview(dialog, IDC_ERASE_AREA_PREVIEW);
    }
}

// ---- Pictures -----------------------------------------------------------------------------------

constexpr struct {
    int Frame;
    int Bitmap;
} kPictures[] = {{IDC_ERASE_STRIPE_PICTURE, IDB_ERASE_STRIPE},
                 {IDC_ERASE_CARD_PICTURE, IDB_ERASE_CARD}};

void Paint(HWND dialog, DriverContext& context, HDC target, const RECT& asked) {
    PaintAreaPreview(target, ControlArea(dialog, IDC_ERASE_AREA_PREVIEW),
                     context.WorkingDevMode.Public.dmOrientation == DMORIENT_PORTRAIT, area.Area);
    PictureSet pictures;
    for (const auto& picture : kPictures) {
        RECT common;
        const RECT frame = ControlArea(dialog, picture.Frame);
        if (IntersectRect(&common, &frame, &asked)) {
            DrawBitmap(pictures, target, frame.left, frame.top, picture.Bitmap, &frame);
        }
    }
}

// ---- The page -----------------------------------------------------------------------------------

void Open(HWND dialog, DriverContext& context) {
    ShowChoices(dialog, context.WorkingDevMode);
    ShowEnergies(dialog, context.WorkingDevMode);
}

void PressChoice(HWND dialog, DevModeRecord& record, int control) {
    for (const BoundButton& button : kButtons) {
        if (button.Control == control) {
            StoreClick(record, button);
            ShowChoices(dialog, record);
            TellSheetChanged(dialog);
        }
    }
}

void Command(HWND dialog, DriverContext& context, int control, int notification) {
    if (control == IDC_ERASE_AREA_LIST && notification == CBN_SELENDOK) {
        ChooseArea(dialog);
    } else if (control == IDC_ERASE_AREA_EDIT) {
        EditArea(dialog, context);
    } else if (control == IDC_ERASE_NOW && notification == BN_CLICKED) {
        EraseCard(context, SliderValue(dialog, kEraseBar));
    } else if (notification == BN_CLICKED) {
        PressChoice(dialog, context.WorkingDevMode, control);
    }
}

void Scroll(HWND dialog, DriverContext&, HWND bar, WORD) {
    for (const EnergyRow& row : kEnergies) {
        if (FollowSlider(dialog, {&row.Bar, 1}, bar)) {
            TellSheetChanged(dialog);
        }
    }
}

void Apply(HWND dialog, DriverContext& context) {
    for (const EnergyRow& row : kEnergies) {
        StoreEnergy(dialog, row.Bar, context.WorkingDevMode, row.Entries);
    }
    SaveEraseAreaName(context.PrinterName, areaName);
}

constexpr Tip kTips[] = {
    {IDC_QUICK_ERASE, TEXT("Erases in less time. Print that is hard to erase may stay visible.")},
    {IDC_ERASE_ENERGY, TEXT("How strongly a card is heated to be erased, for the thickness chosen "
                            "under Device Option.")},
    {IDC_WRITE_ENERGY, TEXT("How strongly a card is heated to be written, for the thickness chosen "
                            "under Device Option.")},
    {IDC_ERASE_NOW, TEXT("Erases a card at once: the stripe or the whole card as chosen below, "
                         "with the energy for erase as it stands here.")},
    {IDC_ERASE_AREA_LIST, TEXT("The areas that the designer has for rewritable cards. The picture "
                               "shows the chosen one.")},
    {IDC_ERASE_AREA_EDIT, TEXT("Opens the designer to change these areas and to make new ones.")},
};

}  // namespace

constinit const Page kRewritePage = {.Slot = kRewriteSlot,
                                     .Section = kRewritableSection,
                                     .SharedSection = kPrintingAreaSection,
                                     .OffersHelp = false,
                                     .Tips = kTips,
                                     .Open = Open,
                                     .Complete = OpenArea,
                                     .Activate = ListAreas,
                                     .Apply = Apply,
                                     .Command = Command,
                                     .ScrollHorizontally = Scroll,
                                     .Paint = Paint,
                                     .Close = CloseArea};
