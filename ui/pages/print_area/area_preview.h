// The picture of a print area: the card, on a checkerboard, with the area's blocks on it.
#pragma once

#include "companions/area_designer.h"

/// Paints a preview at its place on the page. `area` may be none: then there is only the board.
void PaintAreaPreview(HDC target, const RECT& preview, bool isPortrait, const PrintAreaData* area);

/// Has a preview of a page painted anew.
void RedrawAreaPreview(HWND dialog, int preview);
