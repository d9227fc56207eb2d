// The table of fields.
#include "fields.h"

#include "core/card_terms.h"
#include "core/text.h"

#include <algorithm>
#include <bit>

namespace kpdtool {
namespace {

// ---- The driver's own terms, as the tool prints them ------------------------------------------

// Plain ASCII, in the tool's own characters.
template <size_t N>
struct Terms {
    struct Term {
        DWORD code = 0;
        char text[32] = {};
    };
    Term terms[N];
};

template <typename Row, size_t N, typename Code, typename Text>
consteval Terms<N> TermsOf(const Row (&rows)[N], Code code, Text text) {
    Terms<N> result = {};
    for (size_t i = 0; i < N; ++i) {
        result.terms[i].code = code(rows, i);
        std::ranges::copy(WideView(text(rows[i])), result.terms[i].text);
    }
    std::ranges::sort(result.terms, {}, &Terms<N>::Term::code);
    return result;
}

// With names of the tool before them.
template <size_t N, size_t Extra = 0>
struct NamesOfTerms {
    Name names[N + Extra];
    constexpr operator std::span<const Name>() const { return names; }
};
template <size_t N, typename... First>
consteval NamesOfTerms<N, sizeof...(First)> NamesOf(const Terms<N>& terms, First... first) {
    NamesOfTerms<N, sizeof...(First)> result = {{first...}};
    for (size_t i = 0; i < N; ++i) {
        result.names[sizeof...(First) + i] = {terms.terms[i].code, terms.terms[i].text};
    }
    return result;
}

constexpr auto kByIndex = [](const auto&, size_t index) { return static_cast<DWORD>(index); };
constexpr auto kItself = [](const WCHAR* text) { return text; };
constexpr auto kFormName = [](const CardForm& form) { return form.FormName; };

constexpr auto kThicknessTerms = TermsOf(kThicknesses, kByIndex, kItself);
constexpr auto kCardTerms = TermsOf(kCardTypes, kByIndex, kItself);
constexpr auto kRibbonTerms = TermsOf(
    kRibbons, [](const auto& rows, size_t index) { return DWORD{rows[index].Code}; },
    [](const RibbonTerm& row) { return row.Name; });
constexpr auto kPaperTerms = TermsOf(
    CardFormTable,
    [](const auto& forms, size_t index) { return static_cast<DWORD>(forms[index].PaperSize); },
    kFormName);
constexpr auto kMediaTerms = TermsOf(
    CardFormTable, [](const auto& forms, size_t index) { return forms[index].MediaType; },
    kFormName);

constexpr auto kThicknessNames = NamesOf(kThicknessTerms);
constexpr auto kCardNames = NamesOf(kCardTerms);
constexpr auto kRibbonNames = NamesOf(kRibbonTerms);
constexpr auto kPaperNames = NamesOf(kPaperTerms, Name{0, "by dimensions"});
constexpr auto kMediaNames = NamesOf(kMediaTerms, Name{0, "by dimensions"});

// ---- The tool's own ---------------------------------------------------------------------------

constexpr Name kOffOn[] = {{0, "off"}, {1, "on"}};
constexpr Name kSides[] = {{kFrontSide, "front"}, {kBackSide, "back"}};

constexpr Name kPublicFields[] = {
    {0x00000001, "orientation"},
    {0x00000002, "paper size"},
    {0x00000004, "paper length"},
    {0x00000008, "paper width"},
    {0x00000010, "scale"},
    {0x00000020, "position"},
    {0x00000040, "pages per sheet"},
    {0x00000080, "display orientation"},
    {0x00000100, "copies"},
    {0x00000200, "default source"},
    {0x00000400, "print quality"},
    {0x00000800, "colour"},
    {0x00001000, "duplex"},
    {0x00002000, "y resolution"},
    {0x00004000, "TrueType option"},
    {0x00008000, "collate"},
    {0x00010000, "form name"},
    {0x00020000, "log pixels"},
    {0x00040000, "bits per pixel"},
    {0x00080000, "pixel width"},
    {0x00100000, "pixel height"},
    {0x00200000, "display flags"},
    {0x00400000, "display frequency"},
    {0x00800000, "ICM method"},
    {0x01000000, "ICM intent"},
    {0x02000000, "media type"},
    {0x04000000, "dither type"},
    {0x08000000, "panning width"},
    {0x10000000, "panning height"},
    {0x20000000, "fixed output"},
};
constexpr Name kOrientations[] = {{DMORIENT_PORTRAIT, "portrait"},
                                  {DMORIENT_LANDSCAPE, "landscape"}};
constexpr Name kSources[] = {{DMBIN_AUTO, "automatic"}};
constexpr Name kColors[] = {{DMCOLOR_MONOCHROME, "monochrome"}, {DMCOLOR_COLOR, "colour"}};
constexpr Name kDuplex[] = {
    {DMDUP_SIMPLEX, "simplex"}, {DMDUP_VERTICAL, "long edge"}, {DMDUP_HORIZONTAL, "short edge"}};
constexpr Name kTrueTypes[] = {
    {1, "as bitmaps"}, {2, "downloaded"}, {3, "substituted"}, {4, "downloaded outlines"}};
constexpr Name kIcmMethods[] = {
    {1, "none"}, {2, "by the system"}, {3, "by the driver"}, {4, "by the device"}};
constexpr Name kIcmIntents[] = {
    {1, "saturation"}, {2, "contrast"}, {3, "colorimetric"}, {4, "absolute colorimetric"}};
constexpr Name kDithers[] = {{1, "none"},     {2, "coarse"},          {3, "fine"},
                             {4, "line art"}, {5, "error diffusion"}, {10, "greyscale"}};

constexpr Name kSkinTones[] = {{1, "reddish"}, {2, "yellowish"}};
constexpr Name kColorStyles[] = {{0, "classic colour"}, {1, "basic colour"}};
constexpr Name kCardSizeKinds[] = {{kCardByPaperSize, "by paper size"},
                                   {kCardByDimensions, "CR-80 Card by dimensions"},
                                   {kLongCard, "CR-80 Long Card by dimensions"}};
constexpr Name kColorPreferences[] = {{kPrinterColor, "printer's own colour"},
                                      {kWindowsColor, "Windows colour management"},
                                      {kNoColorPreference, "no preference"}};
constexpr Name kResinOptions[] = {{kFrontBlackByResin, "front black by resin K"},
                                  {kBackBlackByResin, "back black by resin K"},
                                  {kFrontResinDither, "front resin dither"},
                                  {kBackResinDither, "back resin dither"},
                                  {kFrontTextOnly, "front text only"},
                                  {kBackTextOnly, "back text only"},
                                  {kFrontColorDisabled, "front colour disabled"},
                                  {kBackColorDisabled, "back colour disabled"}};
constexpr Name kResinOptions2[] = {{kFrontBlackAndWhite, "front black and white"},
                                   {kBackBlackAndWhite, "back black and white"},
                                   {kFrontResinGrey, "front resin grey"}};
constexpr Name kPrintingModes[] = {{kPremiumPhotoMode, "premium photo"},
                                   {kStandardMode, "standard"}};
constexpr Name kCoercivities[] = {{0, "Low Co"}, {1, "High Co"}};
constexpr Name kMagOptions[] = {{kTrack1, "Track 1"},
                                {kTrack2, "Track 2"},
                                {kTrack3, "Track 3"},
                                {kUsingDatabase, "Using Database"},
                                {kPrefixSuffixFilter, "Prefix / Suffix Filter"}};
constexpr Name kOvercoats[] = {{kFrontGlossy, "front glossy"},
                               {kFrontDesigned, "front designed"},
                               {kBackGlossy, "back glossy"},
                               {kBackDesigned, "back designed"}};
constexpr Name kResinKs[] = {{kFrontCmyUnderK, "front CMY under K"},
                             {kFrontKOnly, "front K only"},
                             {kBackCmyUnderK, "back CMY under K"},
                             {kBackKOnly, "back K only"}};
constexpr Name kLaminations[] = {{0, "Mirv Standard Overlay"}, {1, "Mirv Standard Patch"}};
constexpr Name kSharpenModes[] = {{0, "edges only"}, {1, "whole image"}};
constexpr Name kEraseAreas[] = {{0, "the stripe"}, {1, "the whole card"}};
constexpr Name kWatermarks[] = {{0, "none"},
                                {1, "Default water mark 1"},
                                {2, "Default water mark 2"},
                                {3, "Default water mark 3"},
                                {4, "Default water mark 4"}};
constexpr Name kCardHandling[] = {{kMoveToStandby, "to standby position after printing"},
                                  {kDriversOwnJob, "driver's own chart or erase job"},
                                  {kEraseBeforeWrite, "erase before write"},
                                  {kQuickErase, "quick erase"},
                                  {kFeedFromOutputSide, "feed from output side"}};
constexpr Name kPrinterOptions[] = {{kNoErrorDialog, "no error dialog"},
                                    {kNoOvercoat, "no overcoating"},
                                    {kNoCleaningMode, "no cleaning mode"},
                                    {kNoEject, "no eject after printing"}};

// A member's place, and its width and kind by its type.
template <typename Member>
constexpr Field Row(const char* name, size_t offset) {
    using Element = std::remove_all_extents_t<Member>;
    const Kind kind = std::is_same_v<Element, WCHAR>  ? Kind::kWideText
                      : std::is_same_v<Element, CHAR> ? Kind::kByteText
                      : std::is_signed_v<Element>     ? Kind::kSigned
                                                      : Kind::kUnsigned;
    return {name, static_cast<WORD>(offset), sizeof(Member), sizeof(Element), kind};
}
#define PUBLIC(member) Row<decltype(DEVMODEW::member)>(#member, offsetof(DEVMODEW, member))
#define PRIVATE(member) \
    Row<decltype(DevModePrivate::member)>(#member, kPublicSize + offsetof(DevModePrivate, member))
// One of the energy tables, which people number through both arrays.
#define ENERGY(number, member, index)   \
    Row<signed char[kEnergyTableSize]>( \
        "EnergyTables[" #number "]",    \
        kPublicSize + offsetof(DevModePrivate, member) + index * kEnergyTableSize)

constexpr Field kFields[] = {
    PUBLIC(dmDeviceName).Is("printer, device or driver name"),
    PUBLIC(dmSpecVersion).Hex().Is("version of the public part"),
    PUBLIC(dmDriverVersion).Hex().Is("version of the driver"),
    PUBLIC(dmSize).Is("bytes of the public part"),
    PUBLIC(dmDriverExtra).Is("bytes of the private part"),
    PUBLIC(dmFields).Bits(kPublicFields).Is("public fields that count"),
    PUBLIC(dmOrientation).Under(DM_ORIENTATION).OneOf(kOrientations),
    PUBLIC(dmPaperSize).Under(DM_PAPERSIZE).OneOf(kPaperNames).Is("card form"),
    PUBLIC(dmPaperLength).Under(DM_PAPERLENGTH).Is("tenths of a millimetre"),
    PUBLIC(dmPaperWidth).Under(DM_PAPERWIDTH).Is("tenths of a millimetre"),
    PUBLIC(dmScale).Under(DM_SCALE).In(1, kMaxScale).Is("per cent"),
    PUBLIC(dmCopies).Under(DM_COPIES).In(1, kMaxCopies),
    PUBLIC(dmDefaultSource).Under(DM_DEFAULTSOURCE).Named(kSources).Is("paper source"),
    PUBLIC(dmPrintQuality).Under(DM_PRINTQUALITY).In(kResolution, kResolution).Is("dots per inch"),
    PUBLIC(dmColor).Under(DM_COLOR).OneOf(kColors),
    PUBLIC(dmDuplex).Under(DM_DUPLEX).OneOf(kDuplex),
    PUBLIC(dmYResolution).Under(DM_YRESOLUTION).In(kResolution, kResolution).Is("dots per inch"),
    PUBLIC(dmTTOption).Under(DM_TTOPTION).Named(kTrueTypes).Is("TrueType fonts"),
    PUBLIC(dmCollate).Under(DM_COLLATE).OneOf(kOffOn),
    PUBLIC(dmFormName).Under(DM_FORMNAME).Is("name of the card form"),
    PUBLIC(dmLogPixels).Is("dots per inch"),
    PUBLIC(dmBitsPerPel).Is("bits per pixel"),
    PUBLIC(dmPelsWidth),
    PUBLIC(dmPelsHeight),
    PUBLIC(dmNup).Under(DM_NUP).Is("pages per sheet"),
    PUBLIC(dmDisplayFrequency),
    PUBLIC(dmICMMethod).Under(DM_ICMMETHOD).Named(kIcmMethods).Is("colour management"),
    PUBLIC(dmICMIntent).Under(DM_ICMINTENT).Named(kIcmIntents).Is("colour matching"),
    PUBLIC(dmMediaType).Under(DM_MEDIATYPE).Named(kMediaNames).Is("card form"),
    PUBLIC(dmDitherType).Under(DM_DITHERTYPE).Named(kDithers).Is("dithering"),
    PUBLIC(dmReserved1),
    PUBLIC(dmReserved2),
    PUBLIC(dmPanningWidth),
    PUBLIC(dmPanningHeight),

    PRIVATE(Reserved00),
    PRIVATE(Reserved04),
    PRIVATE(SkinTone).OneOf(kSkinTones).Is("2 for a Simplified Chinese user"),
    PRIVATE(ColorStyle).In(0, 5).Named(kColorStyles).Is("further styles have no names"),
    PRIVATE(Reserved08),
    PRIVATE(Reserved10),
    PRIVATE(CardSizeKind).OneOf(kCardSizeKinds).Is("a merge decides it by the card form"),
    PRIVATE(ColorFlag).OneOf(kOffOn),
    PRIVATE(AdvanceToolFlag).OneOf(kOffOn).Is("a merge makes any other value 1"),
    PRIVATE(ModelCode).In(kModelCode, kModelCode).Is("selects the help file; a merge sets it"),
    PRIVATE(ReservedText).Is("a merge ends it at its last byte"),
    PRIVATE(Brightness).In(-100, 100).Is("begins the colour block that is exported whole"),
    PRIVATE(Contrast).In(-100, 100),
    PRIVATE(Sharpness).In(0, 100),
    PRIVATE(Gamma).In(10, 999).Is("gamma times 100"),
    PRIVATE(Cyan).In(-100, 100),
    PRIVATE(Magenta).In(-100, 100),
    PRIVATE(Yellow).In(-100, 100),
    PRIVATE(Saturation).In(-100, 100),
    PRIVATE(ColorReserved).Is("ends the colour block"),
    PRIVATE(CardThickness).OneOf(kThicknessNames).Is("also indexes the energy tables"),
    PRIVATE(PrintPositionC).Is("print position adjuster, C"),
    PRIVATE(PrintPositionA).Is("print position adjuster, A"),
    PRIVATE(PrintPositionB).Is("print position adjuster, B"),
    PRIVATE(PrintPositionExtra).Is("copied with the three print positions"),
    PRIVATE(Reserved94).Is("never taken by a merge"),
    PRIVATE(Reserved97),
    PRIVATE(Reserved98).Is("never taken by a merge"),
    PRIVATE(Reserved100).Is("1 for a Chinese, Japanese or Korean user"),
    PRIVATE(ColorPreference).OneOf(kColorPreferences).Is("a merge makes any other value 0"),
    PRIVATE(Reserved103).In(0, 1).Is("a merge makes any other value 0"),
    PRIVATE(Reserved104),
    PRIVATE(RibbonType)
        .In(0, kMaxRibbonType)
        .Named(kRibbonNames)
        .Is("a merge makes any other value 0"),
    PRIVATE(Reserved106),
    PRIVATE(CardType).OneOf(kCardNames),
    PRIVATE(PrintSides).Bits(kSides).Is("sides that are printed"),
    PRIVATE(ColorSides).Bits(kSides).Is("sides printed in colour"),
    PRIVATE(ResinOptions).Bits(kResinOptions),
    PRIVATE(TransparentCard).OneOf(kOffOn),
    PRIVATE(Reserved112),
    PRIVATE(Reserved113),
    PRIVATE(Reserved114),
    PRIVATE(Reserved115),
    PRIVATE(PrintingMode).OneOf(kPrintingModes),
    ENERGY(0, EnergyTables, 0).Is("density YMC"),
    ENERGY(1, EnergyTables, 1).Is("density K"),
    ENERGY(2, EnergyTables, 2).Is("density O"),
    ENERGY(3, EnergyTables, 3).Is("density resin K"),
    ENERGY(4, EnergyTables, 4).Is("no page shows it"),
    ENERGY(5, EnergyTables, 5).Is("sensitivity YMC"),
    ENERGY(6, EnergyTables, 6).Is("sensitivity K"),
    ENERGY(7, EnergyTables, 7).Is("sensitivity O"),
    ENERGY(8, EnergyTables, 8).Is("sensitivity resin K"),
    ENERGY(9, EnergyTables, 9).Is("no page shows it"),
    PRIVATE(MagEncoderSelect).OneOf(kOffOn),
    PRIVATE(MagCoercivity).OneOf(kCoercivities),
    PRIVATE(MagRetryTimes).In(0, 10).Is("times of retry"),
    PRIVATE(MagOptions).Bits(kMagOptions),
    PRIVATE(OrientationLock).OneOf(kOffOn).Is("holds the default orientation without a window"),
    PRIVATE(SkinSliderV),
    PRIVATE(SkinSliderH),
    PRIVATE(MagStartRecord).In(1, 2147483647).Is("encoding starts from this database record"),
    PRIVATE(LaminationSides).Bits(kSides).Is("sides that are laminated"),
    PRIVATE(OvercoatMode).Bits(kOvercoats),
    PRIVATE(ResinKMode).Bits(kResinKs),
    PRIVATE(LaminationOption).OneOf(kLaminations).Is("lamination film"),
    PRIVATE(Reserved212),
    PRIVATE(Reserved213),
    PRIVATE(Reserved214),
    PRIVATE(AutoEnhance).OneOf(kOffOn),
    PRIVATE(SharpenMode).OneOf(kSharpenModes),
    PRIVATE(Reserved217),
    PRIVATE(KOnlyOnBack).OneOf(kOffOn),
    PRIVATE(ResinOptions2).Bits(kResinOptions2),
    PRIVATE(MagRetryCards).In(0, 10).Is("cards of retry"),
    PRIVATE(MagicCoating),
    ENERGY(10, EnergyTables10, 0).Is("density F"),
    ENERGY(11, EnergyTables10, 1).Is("sensitivity F"),
    ENERGY(12, EnergyTables10, 2).Is("density, fourth set"),
    ENERGY(13, EnergyTables10, 3).Is("sensitivity, fourth set"),
    ENERGY(14, EnergyTables10, 4).Is("write energy of rewritable cards"),
    PRIVATE(Reserved262).Is("never taken by a merge"),
    PRIVATE(PrintAsOtherModel).OneOf(kOffOn),
    PRIVATE(PlusRApplication).OneOf(kOffOn),
    PRIVATE(WhiteSkip).OneOf(kOffOn),
    PRIVATE(EraseAreaMode).OneOf(kEraseAreas),
    PRIVATE(Reserved269),
    PRIVATE(Reserved270),
    PRIVATE(WatermarkIndex).OneOf(kWatermarks),
    PRIVATE(CardHandlingFlags).Bits(kCardHandling),
    PRIVATE(FlipSides).Bits(kSides).Is("sides that are flipped"),
    PRIVATE(BlackByYmcK).Bits(kSides).Is("sides whose black is of YMC and K"),
    PRIVATE(Reserved276),
    PRIVATE(Reserved324),
    PRIVATE(Reserved330),
    PRIVATE(Reserved336),
    PRIVATE(Reserved338),
    PRIVATE(BitBltInvert).OneOf(kOffOn),
    PRIVATE(Reserved341),
    PRIVATE(Reserved342),
    PRIVATE(Reserved344),
    PRIVATE(RotateSides).Bits(kSides).Is("sides rotated by 180 degrees"),
    PRIVATE(Reserved346),
    PRIVATE(Reserved348),
    PRIVATE(PrinterOptionFlags).Bits(kPrinterOptions),
    PRIVATE(Reserved354),
    PRIVATE(SkipBlankPage).OneOf(kOffOn),
    PRIVATE(EraseEnergyTable).Is("erase energy of rewritable cards"),
};

#undef PUBLIC
#undef PRIVATE
#undef ENERGY

std::string NameText(const Field& field, const Name& name) {
    return field.kind == Kind::kBits
               ? "bit " + std::to_string(std::countr_zero(name.value)) + " " + name.text
               : std::to_string(name.value) + " " + name.text;
}

}  // namespace

std::string Field::WidthText() const {
    if (kind == Kind::kWideText) {
        return std::to_string(Count()) + " characters";
    }
    if (kind == Kind::kByteText) {
        return std::to_string(Count()) + " bytes";
    }
    const std::string one = (kind == Kind::kSigned ? "s" : "u") + std::to_string(element * 8);
    return IsArray() ? std::to_string(Count()) + " x " + one : one;
}

std::string Field::ValuesText() const {
    std::string text;
    if (legal == Legal::kRange) {
        text = low == high ? "always " + std::to_string(low)
                           : std::to_string(low) + " to " + std::to_string(high);
    }
    const char* separator = text.empty() ? "" : "; ";
    for (const Name& name : names) {
        text += separator + NameText(*this, name);
        separator = ", ";
    }
    return text;
}

std::span<const Field> RecordFields() {
    return kFields;
}

}  // namespace kpdtool
