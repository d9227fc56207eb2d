// The device mode record: the one place of its layout. The spooler stores it, applications pass it
// around and the rendering half of the driver reads it, so every offset below is a persisted
// format. All numbers are little-endian; bits count from bit 0. docs/record.md shows the same to
// people.
#pragma once

#include <windows.h>

#include <cstddef>

// ---- Identification ---------------------------------------------------------------------------
// A record is this driver's own only when all four hold.

constexpr WORD kSpecVersion = 0x0401;
constexpr WORD kDriverVersion = 0x0500;
constexpr WORD kPublicSize = 220;
constexpr WORD kPrivateSize = 364;
constexpr WORD kRecordSize = kPublicSize + kPrivateSize;

/// Bytes up to and including dmDriverExtra. Every record has them, also one whose dmSize says less.
constexpr WORD kHeaderSize = offsetof(DEVMODEW, dmFields);

// ---- Values of private fields -----------------------------------------------------------------

constexpr BYTE kModelCode = 32;
constexpr BYTE kMaxRibbonType = 14;
constexpr size_t kEnergyTableSize = 8;

enum SideBits : BYTE { kFrontSide = 1, kBackSide = 2 };

enum CardSizeKindCode : BYTE {
    kCardByPaperSize = 0,   ///< card form by dmPaperSize
    kCardByDimensions = 1,  ///< card form 0 by its dimensions
    kLongCard = 2,          ///< card form 1 by its dimensions
};

enum CardThicknessCode : BYTE { kThickness03, kThickness05, kThickness08, kThickness10 };

enum ColorPreferenceCode : BYTE { kPrinterColor, kWindowsColor, kNoColorPreference };

enum RibbonCode : BYTE {
    kRibbonYMCKO = 0,
    kRibbonK = 1,
    kRibbonKO = 3,
    kRibbonYMCKOK = 4,
    kRibbonHalfYMCKO = 5,
    kRibbonYMCKFO = 12,
};

enum CardTypeCode : BYTE {
    kBlankCard,
    k6PinChipCard,
    k8PinChipCard,
    kMagneticStripeCard,
    kChipMagneticCard,
    kAdhesiveCard,
};

enum PrintingModeCode : BYTE { kPremiumPhotoMode = 0, kStandardMode = 1 };

enum ResinOptionBits : BYTE {
    kFrontBlackByResin = 0x01,
    kBackBlackByResin = 0x02,
    kFrontResinDither = 0x04,
    kBackResinDither = 0x08,
    kFrontTextOnly = 0x10,
    kBackTextOnly = 0x20,
    kFrontColorDisabled = 0x40,
    kBackColorDisabled = 0x80,
};

enum ResinOption2Bits : BYTE {
    kFrontBlackAndWhite = 0x01,
    kBackBlackAndWhite = 0x02,
    kFrontResinGrey = 0x04,
};

enum MagOptionBits : BYTE {
    kTrack1 = 0x01,
    kTrack2 = 0x02,
    kTrack3 = 0x04,
    kUsingDatabase = 0x08,
    kPrefixSuffixFilter = 0x20,
};

enum OvercoatBits : BYTE {
    kFrontGlossy = 0x01,
    kFrontDesigned = 0x02,
    kBackGlossy = 0x04,
    kBackDesigned = 0x08,
};

enum ResinKBits : BYTE {
    kFrontCmyUnderK = 0x01,
    kFrontKOnly = 0x02,
    kBackCmyUnderK = 0x04,
    kBackKOnly = 0x08,
};

enum EraseAreaCode : BYTE { kEraseStripe = 0, kEraseWholeCard = 1 };

enum CardHandlingBits : WORD {
    kMoveToStandby = 0x0001,
    kDriversOwnJob = 0x0004,  ///< set in the records of the driver's chart and erase jobs
    kEraseBeforeWrite = 0x0008,
    kQuickErase = 0x0010,
    kFeedFromOutputSide = 0x0020,
};

enum PrinterOptionBits : WORD {
    kNoErrorDialog = 0x0001,
    kNoOvercoat = 0x0004,
    kNoCleaningMode = 0x0100,
    kNoEject = 0x8000,
};

// ---- The record -------------------------------------------------------------------------------

/// The private part, with each field's offset in it. The fields named Reserved belong to the
/// rendering half; their offsets, widths and defaults bind all the same.
struct DevModePrivate {
    DWORD Reserved00;         //   0
    WORD Reserved04;          //   4
    BYTE SkinTone;            //   6  1 reddish tone, 2 yellowish tone
    BYTE ColorStyle;          //   7  0 classic colour, 1 basic colour, 2 to 5 further styles
    WORD Reserved08;          //   8
    WORD Reserved10;          //  10
    BYTE CardSizeKind;        //  12  CardSizeKindCode
    BYTE ColorFlag;           //  13  0 or 1
    BYTE AdvanceToolFlag;     //  14  0 or 1
    BYTE ModelCode;           //  15  always kModelCode; selects the help file
    CHAR ReservedText[40];    //  16  zero-terminated
    SHORT Brightness;         //  56  -100 to 100; begins the 32-byte block exported whole
    SHORT Contrast;           //  58  -100 to 100
    SHORT Sharpness;          //  60  0 to 100
    WORD Gamma;               //  62  gamma times 100, 10 to 999
    SHORT Cyan;               //  64  -100 to 100
    SHORT Magenta;            //  66  -100 to 100
    SHORT Yellow;             //  68  -100 to 100
    SHORT Saturation;         //  70  -100 to 100
    BYTE ColorReserved[16];   //  72  ends that block
    BYTE CardThickness;       //  88  CardThicknessCode; indexes the energy tables
    BYTE PrintPositionC;      //  89  print position adjuster
    BYTE PrintPositionA;      //  90
    BYTE PrintPositionB;      //  91
    WORD PrintPositionExtra;  //  92
    BYTE Reserved94[3];       //  94  never taken by a merge
    BYTE Reserved97;          //  97
    WORD Reserved98;          //  98  never taken by a merge
    WORD Reserved100;         // 100  1 for a Chinese, Japanese or Korean user, else 3
    BYTE ColorPreference;     // 102  ColorPreferenceCode
    BYTE Reserved103;         // 103  0 or 1
    BYTE Reserved104;         // 104
    BYTE RibbonType;          // 105  RibbonCode, at most kMaxRibbonType
    BYTE Reserved106;         // 106
    BYTE CardType;            // 107  CardTypeCode
    BYTE PrintSides;          // 108  SideBits: sides that are printed
    BYTE ColorSides;          // 109  SideBits: sides printed in colour
    BYTE ResinOptions;        // 110  ResinOptionBits
    BYTE TransparentCard;     // 111  0 or 1
    BYTE Reserved112;         // 112
    BYTE Reserved113;         // 113
    BYTE Reserved114;         // 114
    BYTE Reserved115;         // 115
    BYTE PrintingMode;        // 116  PrintingModeCode
    signed char EnergyTables[10][kEnergyTableSize];  // 117  tables 0 to 9
    BYTE MagEncoderSelect;                           // 197  0 or 1
    BYTE MagCoercivity;                              // 198  1 high coercivity, 0 low
    BYTE MagRetryTimes;                              // 199  0 to 10
    BYTE MagOptions;                                 // 200  MagOptionBits
    BYTE OrientationLock;   // 201  1: calls without a window hold the default orientation
    BYTE SkinSliderV;       // 202  0 to 255
    BYTE SkinSliderH;       // 203  0 to 255
    DWORD MagStartRecord;   // 204  1 to 2147483647
    BYTE LaminationSides;   // 208  SideBits
    BYTE OvercoatMode;      // 209  OvercoatBits
    BYTE ResinKMode;        // 210  ResinKBits
    BYTE LaminationOption;  // 211  0 overlay film, 1 patch film
    BYTE Reserved212;       // 212
    BYTE Reserved213;       // 213
    BYTE Reserved214;       // 214
    BYTE AutoEnhance;       // 215  0 or 1
    BYTE SharpenMode;       // 216  0 edges only, 1 whole image
    BYTE Reserved217;       // 217
    BYTE KOnlyOnBack;       // 218  0 or 1
    BYTE ResinOptions2;     // 219  ResinOption2Bits
    BYTE MagRetryCards;     // 220  0 to 10
    BYTE MagicCoating;      // 221
    signed char EnergyTables10[5][kEnergyTableSize];  // 222  tables 10 to 14
    BYTE Reserved262[3];                              // 262  never taken by a merge
    BYTE PrintAsOtherModel;                           // 265  0 or 1
    BYTE PlusRApplication;                            // 266  0 or 1
    BYTE WhiteSkip;                                   // 267  1 on, 0 off
    BYTE EraseAreaMode;                               // 268  EraseAreaCode
    BYTE Reserved269;                                 // 269
    BYTE Reserved270;                                 // 270
    BYTE WatermarkIndex;                              // 271  0 none, 1 to 4
    WORD CardHandlingFlags;                           // 272  CardHandlingBits
    BYTE FlipSides;                                   // 274  SideBits
    BYTE BlackByYmcK;                                 // 275  SideBits
    BYTE Reserved276[48];                             // 276
    WORD Reserved324[3];                              // 324
    WORD Reserved330[3];                              // 330
    WORD Reserved336;                                 // 336
    WORD Reserved338;                                 // 338
    BYTE BitBltInvert;                                // 340  0 or 1
    BYTE Reserved341;                                 // 341
    WORD Reserved342;                                 // 342
    BYTE Reserved344;                                 // 344
    BYTE RotateSides;                                 // 345  SideBits: sides rotated by 180 degrees
    WORD Reserved346;                                 // 346
    DWORD Reserved348;                                // 348
    WORD PrinterOptionFlags;                          // 352  PrinterOptionBits
    BYTE Reserved354;                                 // 354
    BYTE SkipBlankPage;                               // 355  0 or 1
    signed char EraseEnergyTable[kEnergyTableSize];   // 356  signed, indexed by card thickness
};

/// The whole record of this driver. In a record of another size the private part begins at that
/// record's own dmSize.
struct DevModeRecord {
    DEVMODEW Public;         //   0
    DevModePrivate Private;  // 220
};

// ---- Defaults ---------------------------------------------------------------------------------

/// What a record of this driver claims; a merge adds nothing to it.
constexpr DWORD kDefaultFields =
    DM_ORIENTATION | DM_PAPERSIZE | DM_PAPERLENGTH | DM_PAPERWIDTH | DM_SCALE | DM_NUP | DM_COPIES |
    DM_DEFAULTSOURCE | DM_PRINTQUALITY | DM_COLOR | DM_DUPLEX | DM_YRESOLUTION | DM_TTOPTION |
    DM_COLLATE | DM_FORMNAME | DM_ICMMETHOD | DM_ICMINTENT | DM_MEDIATYPE | DM_DITHERTYPE;
constexpr SHORT kDefaultOrientation = DMORIENT_LANDSCAPE;
constexpr SHORT kResolution = 300;  ///< dots per inch, both ways, always
constexpr SHORT kMaxScale = 1000;   ///< per cent
constexpr SHORT kMaxCopies = 9999;

/// Fills the whole record with the defaults of a model. `name` becomes the device name, cut to 31
/// characters; `modelName` is the printer's driver name. Either may be null: no device name, no
/// model's exceptions. Always gives 1.
int BuildDefaultDevMode(DevModeRecord* record, const WCHAR* name, const WCHAR* modelName);

/// Fills the private part that begins at the record's own dmSize with the defaults of a model and
/// of the user's UI language. The record is a block of kRecordSize bytes; one whose dmSize leaves
/// no room for the private part in that block is left alone.
void BuildPrivateDefaults(DEVMODEW* record, const WCHAR* modelName);

/// Copies at most `length` - 1 characters of `source` into the field of `length` characters and
/// fills the rest with zeros, so that no byte of an older name stays behind.
void CopyWideBounded(WCHAR* destination, const WCHAR* source, size_t length);

// ---- The layout, pinned -----------------------------------------------------------------------

static_assert(sizeof(DEVMODEW) == kPublicSize);
static_assert(sizeof(DevModePrivate) == kPrivateSize);
static_assert(sizeof(DevModeRecord) == kRecordSize);
static_assert(offsetof(DevModeRecord, Private) == kPublicSize);
static_assert(kHeaderSize == 72);
static_assert(offsetof(DEVMODEW, dmDeviceName) == 0);
static_assert(offsetof(DEVMODEW, dmSpecVersion) == 64);
static_assert(offsetof(DEVMODEW, dmDriverVersion) == 66);
static_assert(offsetof(DEVMODEW, dmSize) == 68);
static_assert(offsetof(DEVMODEW, dmDriverExtra) == 70);
static_assert(offsetof(DEVMODEW, dmFields) == 72);
static_assert(offsetof(DEVMODEW, dmOrientation) == 76);
static_assert(offsetof(DEVMODEW, dmPaperSize) == 78);
static_assert(offsetof(DEVMODEW, dmPaperLength) == 80);
static_assert(offsetof(DEVMODEW, dmPaperWidth) == 82);
static_assert(offsetof(DEVMODEW, dmScale) == 84);
static_assert(offsetof(DEVMODEW, dmCopies) == 86);
static_assert(offsetof(DEVMODEW, dmDefaultSource) == 88);
static_assert(offsetof(DEVMODEW, dmPrintQuality) == 90);
static_assert(offsetof(DEVMODEW, dmColor) == 92);
static_assert(offsetof(DEVMODEW, dmDuplex) == 94);
static_assert(offsetof(DEVMODEW, dmYResolution) == 96);
static_assert(offsetof(DEVMODEW, dmTTOption) == 98);
static_assert(offsetof(DEVMODEW, dmCollate) == 100);
static_assert(offsetof(DEVMODEW, dmFormName) == 102);
static_assert(offsetof(DEVMODEW, dmLogPixels) == 166);
static_assert(offsetof(DEVMODEW, dmBitsPerPel) == 168);
static_assert(offsetof(DEVMODEW, dmPelsWidth) == 172);
static_assert(offsetof(DEVMODEW, dmPelsHeight) == 176);
static_assert(offsetof(DEVMODEW, dmNup) == 180);
static_assert(offsetof(DEVMODEW, dmDisplayFrequency) == 184);
static_assert(offsetof(DEVMODEW, dmICMMethod) == 188);
static_assert(offsetof(DEVMODEW, dmICMIntent) == 192);
static_assert(offsetof(DEVMODEW, dmMediaType) == 196);
static_assert(offsetof(DEVMODEW, dmDitherType) == 200);
static_assert(offsetof(DEVMODEW, dmReserved1) == 204);
static_assert(offsetof(DEVMODEW, dmReserved2) == 208);
static_assert(offsetof(DEVMODEW, dmPanningWidth) == 212);
static_assert(offsetof(DEVMODEW, dmPanningHeight) == 216);
static_assert(offsetof(DevModePrivate, Reserved00) == 0);
static_assert(offsetof(DevModePrivate, Reserved04) == 4);
static_assert(offsetof(DevModePrivate, SkinTone) == 6);
static_assert(offsetof(DevModePrivate, ColorStyle) == 7);
static_assert(offsetof(DevModePrivate, Reserved08) == 8);
static_assert(offsetof(DevModePrivate, Reserved10) == 10);
static_assert(offsetof(DevModePrivate, CardSizeKind) == 12);
static_assert(offsetof(DevModePrivate, ColorFlag) == 13);
static_assert(offsetof(DevModePrivate, AdvanceToolFlag) == 14);
static_assert(offsetof(DevModePrivate, ModelCode) == 15);
static_assert(offsetof(DevModePrivate, ReservedText) == 16);
static_assert(offsetof(DevModePrivate, Brightness) == 56);
static_assert(offsetof(DevModePrivate, Contrast) == 58);
static_assert(offsetof(DevModePrivate, Sharpness) == 60);
static_assert(offsetof(DevModePrivate, Gamma) == 62);
static_assert(offsetof(DevModePrivate, Cyan) == 64);
static_assert(offsetof(DevModePrivate, Magenta) == 66);
static_assert(offsetof(DevModePrivate, Yellow) == 68);
static_assert(offsetof(DevModePrivate, Saturation) == 70);
static_assert(offsetof(DevModePrivate, ColorReserved) == 72);
static_assert(offsetof(DevModePrivate, CardThickness) == 88);
static_assert(offsetof(DevModePrivate, PrintPositionC) == 89);
static_assert(offsetof(DevModePrivate, PrintPositionA) == 90);
static_assert(offsetof(DevModePrivate, PrintPositionB) == 91);
static_assert(offsetof(DevModePrivate, PrintPositionExtra) == 92);
static_assert(offsetof(DevModePrivate, Reserved94) == 94);
static_assert(offsetof(DevModePrivate, Reserved97) == 97);
static_assert(offsetof(DevModePrivate, Reserved98) == 98);
static_assert(offsetof(DevModePrivate, Reserved100) == 100);
static_assert(offsetof(DevModePrivate, ColorPreference) == 102);
static_assert(offsetof(DevModePrivate, Reserved103) == 103);
static_assert(offsetof(DevModePrivate, Reserved104) == 104);
static_assert(offsetof(DevModePrivate, RibbonType) == 105);
static_assert(offsetof(DevModePrivate, Reserved106) == 106);
static_assert(offsetof(DevModePrivate, CardType) == 107);
static_assert(offsetof(DevModePrivate, PrintSides) == 108);
static_assert(offsetof(DevModePrivate, ColorSides) == 109);
static_assert(offsetof(DevModePrivate, ResinOptions) == 110);
static_assert(offsetof(DevModePrivate, TransparentCard) == 111);
static_assert(offsetof(DevModePrivate, Reserved112) == 112);
static_assert(offsetof(DevModePrivate, Reserved113) == 113);
static_assert(offsetof(DevModePrivate, Reserved114) == 114);
static_assert(offsetof(DevModePrivate, Reserved115) == 115);
static_assert(offsetof(DevModePrivate, PrintingMode) == 116);
static_assert(offsetof(DevModePrivate, EnergyTables) == 117);
static_assert(offsetof(DevModePrivate, MagEncoderSelect) == 197);
static_assert(offsetof(DevModePrivate, MagCoercivity) == 198);
static_assert(offsetof(DevModePrivate, MagRetryTimes) == 199);
static_assert(offsetof(DevModePrivate, MagOptions) == 200);
static_assert(offsetof(DevModePrivate, OrientationLock) == 201);
static_assert(offsetof(DevModePrivate, SkinSliderV) == 202);
static_assert(offsetof(DevModePrivate, SkinSliderH) == 203);
static_assert(offsetof(DevModePrivate, MagStartRecord) == 204);
static_assert(offsetof(DevModePrivate, LaminationSides) == 208);
static_assert(offsetof(DevModePrivate, OvercoatMode) == 209);
static_assert(offsetof(DevModePrivate, ResinKMode) == 210);
static_assert(offsetof(DevModePrivate, LaminationOption) == 211);
static_assert(offsetof(DevModePrivate, Reserved212) == 212);
static_assert(offsetof(DevModePrivate, Reserved213) == 213);
static_assert(offsetof(DevModePrivate, Reserved214) == 214);
static_assert(offsetof(DevModePrivate, AutoEnhance) == 215);
static_assert(offsetof(DevModePrivate, SharpenMode) == 216);
static_assert(offsetof(DevModePrivate, Reserved217) == 217);
static_assert(offsetof(DevModePrivate, KOnlyOnBack) == 218);
static_assert(offsetof(DevModePrivate, ResinOptions2) == 219);
static_assert(offsetof(DevModePrivate, MagRetryCards) == 220);
static_assert(offsetof(DevModePrivate, MagicCoating) == 221);
static_assert(offsetof(DevModePrivate, EnergyTables10) == 222);
static_assert(offsetof(DevModePrivate, Reserved262) == 262);
static_assert(offsetof(DevModePrivate, PrintAsOtherModel) == 265);
static_assert(offsetof(DevModePrivate, PlusRApplication) == 266);
static_assert(offsetof(DevModePrivate, WhiteSkip) == 267);
static_assert(offsetof(DevModePrivate, EraseAreaMode) == 268);
static_assert(offsetof(DevModePrivate, Reserved269) == 269);
static_assert(offsetof(DevModePrivate, Reserved270) == 270);
static_assert(offsetof(DevModePrivate, WatermarkIndex) == 271);
static_assert(offsetof(DevModePrivate, CardHandlingFlags) == 272);
static_assert(offsetof(DevModePrivate, FlipSides) == 274);
static_assert(offsetof(DevModePrivate, BlackByYmcK) == 275);
static_assert(offsetof(DevModePrivate, Reserved276) == 276);
static_assert(offsetof(DevModePrivate, Reserved324) == 324);
static_assert(offsetof(DevModePrivate, Reserved330) == 330);
static_assert(offsetof(DevModePrivate, Reserved336) == 336);
static_assert(offsetof(DevModePrivate, Reserved338) == 338);
static_assert(offsetof(DevModePrivate, BitBltInvert) == 340);
static_assert(offsetof(DevModePrivate, Reserved341) == 341);
static_assert(offsetof(DevModePrivate, Reserved342) == 342);
static_assert(offsetof(DevModePrivate, Reserved344) == 344);
static_assert(offsetof(DevModePrivate, RotateSides) == 345);
static_assert(offsetof(DevModePrivate, Reserved346) == 346);
static_assert(offsetof(DevModePrivate, Reserved348) == 348);
static_assert(offsetof(DevModePrivate, PrinterOptionFlags) == 352);
static_assert(offsetof(DevModePrivate, Reserved354) == 354);
static_assert(offsetof(DevModePrivate, SkipBlankPage) == 355);
static_assert(offsetof(DevModePrivate, EraseEnergyTable) == 356);
