// The Heating Energy page: heating trims per panel, side and card thickness. Its sliders hold the
// values from the page's opening on; the record is written when the sheet applies.
#include "ui/pages/heat_energy/heating_energy_page.h"

#include "resources/resource.h"
#include "ui/common/controls.h"
#include "ui/common/energy_slider.h"
#include "ui/common/help.h"
#include "ui/common/language.h"

#include <commctrl.h>

#include <algorithm>
#include <array>

namespace {

// ---- The sliders --------------------------------------------------------------------------------

// The fourth set of sliders has no tab. It is loaded, reset and stored like the others.
enum Tab : int { kYmckoTab, kResinKTab, kFTab, kNoTab };

constexpr const WCHAR* kDensityTip =
    TEXT("How dark the panel prints, on cards of the thickness chosen under Device Option.");
constexpr const WCHAR* kSensitivityTip = TEXT(
    "How strongly the panel responds to heat, on cards of the thickness chosen under Device "
    "Option.");

/// What is adjusted of a panel, with the table of the record that has both sides' entries.
struct Adjustment {
    Tab ShownOn;
    const WCHAR* Tip;
    RecordField Table;
};

enum Side : WORD { kFront = 0, kBack = kEnergyThicknesses };

struct HeatRow {
    const Adjustment& What;
    Side FirstEntry;
    ValueSlider Bar;
    int Label = 0;  ///< of the panel, where a tab has several
};

// A tick stands at 0.
constexpr ValueSlider Bar(int slider, int text) {
    return EnergyBar(slider, text, 127);
}

// clang-format off
constexpr Adjustment kDensityYmc = {kYmckoTab, kDensityTip, RECORD_FIELD(Private.EnergyTables[0])};
constexpr Adjustment kDensityK = {kYmckoTab, kDensityTip, RECORD_FIELD(Private.EnergyTables[1])};
constexpr Adjustment kDensityO = {kYmckoTab, kDensityTip, RECORD_FIELD(Private.EnergyTables[2])};
constexpr Adjustment kSensitivityYmc = {kYmckoTab, kSensitivityTip, RECORD_FIELD(Private.EnergyTables[5])};
constexpr Adjustment kSensitivityK = {kYmckoTab, kSensitivityTip, RECORD_FIELD(Private.EnergyTables[6])};
constexpr Adjustment kSensitivityO = {kYmckoTab, kSensitivityTip, RECORD_FIELD(Private.EnergyTables[7])};
constexpr Adjustment kDensityResinK = {kResinKTab, kDensityTip, RECORD_FIELD(Private.EnergyTables[3])};
constexpr Adjustment kSensitivityResinK = {kResinKTab, kSensitivityTip, RECORD_FIELD(Private.EnergyTables[8])};
constexpr Adjustment kDensityF = {kFTab, kDensityTip, RECORD_FIELD(Private.EnergyTables10[0])};
constexpr Adjustment kSensitivityF = {kFTab, kSensitivityTip, RECORD_FIELD(Private.EnergyTables10[1])};
constexpr Adjustment kDensitySpare = {kNoTab, kDensityTip, RECORD_FIELD(Private.EnergyTables10[2])};
constexpr Adjustment kSensitivitySpare = {kNoTab, kSensitivityTip, RECORD_FIELD(Private.EnergyTables10[3])};

constexpr HeatRow kRows[] = {
    {kDensityYmc, kFront, Bar(IDC_DENSITY_FRONT_YMC, IDC_DENSITY_FRONT_YMC_VALUE), IDC_DENSITY_FRONT_YMC_LABEL},
    {kDensityK, kFront, Bar(IDC_DENSITY_FRONT_K, IDC_DENSITY_FRONT_K_VALUE), IDC_DENSITY_FRONT_K_LABEL},
    {kDensityO, kFront, Bar(IDC_DENSITY_FRONT_O, IDC_DENSITY_FRONT_O_VALUE), IDC_DENSITY_FRONT_O_LABEL},
    {kDensityYmc, kBack, Bar(IDC_DENSITY_BACK_YMC, IDC_DENSITY_BACK_YMC_VALUE), IDC_DENSITY_BACK_YMC_LABEL},
    {kDensityK, kBack, Bar(IDC_DENSITY_BACK_K, IDC_DENSITY_BACK_K_VALUE), IDC_DENSITY_BACK_K_LABEL},
    {kDensityO, kBack, Bar(IDC_DENSITY_BACK_O, IDC_DENSITY_BACK_O_VALUE), IDC_DENSITY_BACK_O_LABEL},
    {kSensitivityYmc, kFront, Bar(IDC_SENSITIVITY_FRONT_YMC, IDC_SENSITIVITY_FRONT_YMC_VALUE), IDC_SENSITIVITY_FRONT_YMC_LABEL},
    {kSensitivityK, kFront, Bar(IDC_SENSITIVITY_FRONT_K, IDC_SENSITIVITY_FRONT_K_VALUE), IDC_SENSITIVITY_FRONT_K_LABEL},
    {kSensitivityO, kFront, Bar(IDC_SENSITIVITY_FRONT_O, IDC_SENSITIVITY_FRONT_O_VALUE), IDC_SENSITIVITY_FRONT_O_LABEL},
    {kSensitivityYmc, kBack, Bar(IDC_SENSITIVITY_BACK_YMC, IDC_SENSITIVITY_BACK_YMC_VALUE), IDC_SENSITIVITY_BACK_YMC_LABEL},
    {kSensitivityK, kBack, Bar(IDC_SENSITIVITY_BACK_K, IDC_SENSITIVITY_BACK_K_VALUE), IDC_SENSITIVITY_BACK_K_LABEL},
    {kSensitivityO, kBack, Bar(IDC_SENSITIVITY_BACK_O, IDC_SENSITIVITY_BACK_O_VALUE), IDC_SENSITIVITY_BACK_O_LABEL},
    {kDensityResinK, kFront, Bar(IDC_DENSITY_FRONT_RESIN, IDC_DENSITY_FRONT_RESIN_VALUE)},
    {kDensityResinK, kBack, Bar(IDC_DENSITY_BACK_RESIN, IDC_DENSITY_BACK_RESIN_VALUE)},
    {kSensitivityResinK, kFront, Bar(IDC_SENSITIVITY_FRONT_RESIN, IDC_SENSITIVITY_FRONT_RESIN_VALUE)},
    {kSensitivityResinK, kBack, Bar(IDC_SENSITIVITY_BACK_RESIN, IDC_SENSITIVITY_BACK_RESIN_VALUE)},
    {kDensityF, kFront, Bar(IDC_DENSITY_FRONT_F, IDC_DENSITY_FRONT_F_VALUE)},
    {kDensityF, kBack, Bar(IDC_DENSITY_BACK_F, IDC_DENSITY_BACK_F_VALUE)},
    {kSensitivityF, kFront, Bar(IDC_SENSITIVITY_FRONT_F, IDC_SENSITIVITY_FRONT_F_VALUE)},
    {kSensitivityF, kBack, Bar(IDC_SENSITIVITY_BACK_F, IDC_SENSITIVITY_BACK_F_VALUE)},
    {kDensitySpare, kFront, Bar(IDC_DENSITY_FRONT_SPARE, IDC_DENSITY_FRONT_SPARE_VALUE)},
    {kDensitySpare, kBack, Bar(IDC_DENSITY_BACK_SPARE, IDC_DENSITY_BACK_SPARE_VALUE)},
    {kSensitivitySpare, kFront, Bar(IDC_SENSITIVITY_FRONT_SPARE, IDC_SENSITIVITY_FRONT_SPARE_VALUE)},
    {kSensitivitySpare, kBack, Bar(IDC_SENSITIVITY_BACK_SPARE, IDC_SENSITIVITY_BACK_SPARE_VALUE)},
};
// clang-format on

// ---- The record ---------------------------------------------------------------------------------

EnergyEntries EntriesOf(const HeatRow& row) {
    return {row.What.Table, row.FirstEntry};
}

void Load(HWND dialog, const DevModeRecord& record) {
    for (const HeatRow& row : kRows) {
        ShowEnergy(dialog, row.Bar, record, EntriesOf(row));
    }
}

void Apply(HWND dialog, DriverContext& context) {
    for (const HeatRow& row : kRows) {
        StoreEnergy(dialog, row.Bar, context.WorkingDevMode, EntriesOf(row));
    }
}

// ---- Tabs ---------------------------------------------------------------------------------------

void AddTabs(HWND dialog) {
    AddTranslatedTab(dialog, IDC_HEATING_TAB, TEXT("YMCKO"));
    AddTranslatedTab(dialog, IDC_HEATING_TAB, TEXT("Resin K"));
    AddTab(dialog, IDC_HEATING_TAB, TEXT("F"));  // a letter in every language
}

void ShowTab(HWND dialog) {
    const int tab = SelectedTab(dialog, IDC_HEATING_TAB);
    for (const HeatRow& row : kRows) {
        for (const int control : {row.Label, row.Bar.Slider, row.Bar.Text}) {
            ShowControl(dialog, control, row.What.ShownOn == tab);
        }
    }
}

// ---- The page -----------------------------------------------------------------------------------

void Open(HWND dialog, DriverContext& context) {
    AddTabs(dialog);
    for (const HeatRow& row : kRows) {
        PrepareSliders(dialog, {&row.Bar, 1});
    }
    Load(dialog, context.WorkingDevMode);
    ShowTab(dialog);
}

void Notify(HWND dialog, DriverContext&, const NMHDR& notification) {
    if (notification.idFrom == IDC_HEATING_TAB && notification.code == TCN_SELCHANGE) {
        ShowTab(dialog);
    }
}

void Scroll(HWND dialog, DriverContext&, HWND bar, WORD) {
    for (const HeatRow& row : kRows) {
        if (FollowSlider(dialog, {&row.Bar, 1}, bar)) {
            TellSheetChanged(dialog);
            return;
        }
    }
}

void Reset(HWND dialog) {
    for (const HeatRow& row : kRows) {
        ShowSliderValue(dialog, row.Bar, 0);
    }
    TellSheetChanged(dialog);
}

void Command(HWND dialog, DriverContext&, int control, int) {
    switch (control) {
        case IDC_HEATING_DEFAULT:
            Reset(dialog);
            break;
        case IDC_HEATING_DESCRIPTION:
            OpenManual(Manual::kHeatingEnergy);
            break;
        default:
            break;
    }
}

constexpr auto kTips = [] {
    std::array<Tip, std::size(kRows) + 2> tips = {};
    std::ranges::transform(kRows, tips.begin(), [](const HeatRow& row) {
        return Tip{row.Bar.Slider, row.What.Tip};
    });
    tips[std::size(kRows)] = {IDC_HEATING_DEFAULT,
                              TEXT("Sets the values of every tab to 0. They are kept when the "
                                   "settings are accepted.")};
    tips.back() = {IDC_HEATING_DESCRIPTION, TEXT("Opens the manual of this page, a PDF file.")};
    return tips;
}();

}  // namespace

constinit const Page kHeatingEnergyPage = {.Slot = kHeatingEnergySlot,
                                           .Section = kHeatEnergySection,
                                           .OffersHelp = false,
                                           .DropsTooltip = false,
                                           .Tips = kTips,
                                           .Open = Open,
                                           .Apply = Apply,
                                           .Command = Command,
                                           .Notify = Notify,
                                           .ScrollHorizontally = Scroll};
