// The controls of the sample designer's dialog by their numbers, for whoever plays its user.
#pragma once

#include <windows.h>

enum AreaDialogControl : WORD {
    kAreaList = 100,
    kBlockList,
    kMoveLeft,
    kMoveRight,
    kMoveUp,
    kMoveDown,
    kBlockPlace,
    kAreaPreview,
    kAreaLabel,
    kBlockLabel,
};
