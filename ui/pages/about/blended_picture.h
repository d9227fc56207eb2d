// A picture that the page's background shows through, without any opacities: a second bitmap, its
// mask, is white where the page shows through and black under the picture, which is black around
// what it shows.
#pragma once

#include "ui/common/pictures.h"

/// Stretches the picture over `ground` into `place`. Nothing is drawn when a bitmap cannot be
/// loaded or memory is short.
void DrawBlended(PictureSet& pictures, HDC target, const RECT& place, int picture, int mask,
                 HBRUSH ground);
