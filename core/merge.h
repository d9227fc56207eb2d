// The three operations on device mode records that everything else uses. Incoming records are not
// trusted: their sizes are checked before anything is read, and nothing beyond what their own
// dmSize and dmDriverExtra claim is read.
#pragma once

#include "core/device_mode.h"

/// Merges an incoming record of any origin into `current`, a record of this driver: public fields
/// under their dmFields bits and within legal values, the private part only from a record of this
/// driver's identification. `incoming` may be null, which changes nothing. `modelName` (or null)
/// matters only when `current` is not this driver's own. Gives 1, or 0 when memory is short or the
/// incoming record is unusable; then only the device name has been taken.
int MergeDevMode(DevModeRecord* current, const DEVMODEW* incoming, const WCHAR* modelName);

/// Copies `source` into `destination`, which keeps its own identification (dmSpecVersion by its
/// size, dmDriverVersion, dmSize, dmDriverExtra). The private part is copied when the source has
/// this driver's versions and both have the same private size. Gives the bytes copied, or -1 when
/// either is null or has no usable layout: fewer than kSmallestPublicSize bytes, or a size that
/// names no version and no dmSpecVersion.
int ConvertDevModeCopy(const DEVMODEW* source, DEVMODEW* destination);

/// Copies the working record into a caller's output buffer: whole when the caller passed no input
/// record, else in the smaller of the two layouts. `input` may be the same record as `destination`,
/// which must hold as many bytes as the chosen layout. Gives 1 or 0.
int CopyDevModeOut(const DevModeRecord* working, const DEVMODEW* input, DEVMODEW* destination);
