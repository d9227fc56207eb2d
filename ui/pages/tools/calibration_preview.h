// The picture that tells what the three print positions move, with a caption in the user's
// language: a file of the driver package. Process-wide, on the sheet's thread.
#pragma once

#include <windows.h>

/// Loads the picture, in the place of one that is there. There is none for every language.
void LoadCalibrationPreview();
/// Stretches the picture over the area; without one nothing is painted.
void PaintCalibrationPreview(HDC target, const RECT& area);
/// Releases the picture.
void DropCalibrationPreview();
