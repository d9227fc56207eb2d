// The picture of the print positions.
#include "ui/pages/tools/calibration_preview.h"

#include "core/driver_files.h"
#include "core/ui_language.h"
#include "ui/common/pictures.h"

namespace {

HBITMAP preview;

struct PreviewFile {
    WORD Primary;
    WORD Sublanguage;
    const WCHAR* File;  ///< null where Chinese readers of neither script are shown none
};
constexpr PreviewFile kPreviews[] = {
    {LANG_CHINESE, SUBLANG_CHINESE_TRADITIONAL, TEXT("CalPrvTw.bmp")},
    {LANG_CHINESE, SUBLANG_CHINESE_SIMPLIFIED, TEXT("CalPrvCn.bmp")},
    {LANG_CHINESE, kAnySublanguage, nullptr},
    {LANG_PORTUGUESE, kAnySublanguage, TEXT("CalPrvPt.bmp")},
};
constexpr const WCHAR* kEveryOtherPreview = TEXT("CalPrvEn.bmp");

const WCHAR* PreviewFor(LANGID language) {
    for (const PreviewFile& row : kPreviews) {
        if (IsLanguage(language, row.Primary, row.Sublanguage)) {
            return row.File;
        }
    }
    return kEveryOtherPreview;
}

}  // namespace

void LoadCalibrationPreview() {
    DropCalibrationPreview();
    if (const WCHAR* file = PreviewFor(GetUserDefaultUILanguage())) {
        WCHAR path[kDriverPathLength];
        DriverFilePath(path, file);
        preview = static_cast<HBITMAP>(
            LoadImageW(nullptr, path, IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE | LR_CREATEDIBSECTION));
    }
}

void PaintCalibrationPreview(HDC target, const RECT& area) {
    BITMAP size = {};
    if (preview == nullptr || GetObjectW(preview, sizeof(size), &size) == 0) {
        return;
    }
    if (const MemoryCanvas canvas(target, preview); canvas) {
        StretchSmoothly(target, area, canvas.get(), {size.bmWidth, size.bmHeight});
    }
}

void DropCalibrationPreview() {
    if (preview != nullptr) {
        DeleteObject(preview);
        preview = nullptr;
    }
}
