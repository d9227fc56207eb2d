// The page's pictures: what will be printed on the front and the back of the card, and in which
// order.
#pragma once

#include "core/context.h"
#include "ui/common/pictures.h"
#include "ui/common/card_side.h"

/// What a side's picture shows, as the record has it.
struct CardPicture {
    bool Rotated = false;
    bool Flipped = false;
    bool Color = false;
    bool Black = false;
    bool Dither = false;
    bool Chip = false;
    bool Stripe = false;
};
CardPicture CardPictureOf(const DevModePrivate& record, const CardSide& side);

/// Pixels of the canvas on which a card is drawn before it is scaled to its preview.
constexpr SIZE kLandscapeCard = {240, 150};
constexpr SIZE kPortraitCard = {150, 240};

/// Draws a card over the whole of a canvas of its size.
void DrawCard(PictureSet& pictures, HDC canvas, bool isPortrait, const CardPicture& picture);

/// Where the card stands in its preview.
RECT PlaceOfCard(const RECT& preview, bool isPortrait);

/// The back has a preview on models that can print it, as far as they show one.
bool ShowsBackPreview(const DriverContext& context);

/// The page's Paint hook.
void PaintDeviceOptions(HWND dialog, DriverContext& context, HDC target, const RECT& asked);
