// The operations on device mode records that everything else uses. Incoming records are not
// trusted: of each its header is read, which it has whatever it claims, and nothing else beyond
// what its own dmSize and dmDriverExtra claim.
#pragma once

#include "core/device_mode.h"

#include <cstddef>

/// Merges an incoming record of any origin into `current`, a record of this driver: public fields
/// under their dmFields bits and within legal values, the private part only from a record of this
/// driver's identification. `incoming` may be null, which changes nothing. `modelName` (or null)
/// matters only when `current` is not this driver's own. Gives 1, or 0 when memory is short or the
/// incoming record is unusable; then only the device name has been taken.
int MergeDevMode(DevModeRecord* current, const DEVMODEW* incoming, const WCHAR* modelName);

/// Whether a merge into a record of this driver accepts the incoming record (or null), given
/// memory.
bool IsMergeable(const DEVMODEW* incoming);

/// Copies `source` into `destination`, which keeps its own identification (dmSpecVersion by its
/// size, dmDriverVersion, dmSize, dmDriverExtra). The private part is copied when the source has
/// this driver's versions and both have the same private size. Gives the bytes copied, or -1 when
/// either is null or has no usable layout: a size that names no version and no dmSpecVersion, or a
/// destination whose dmSize does not cover its header. The two may be one record.
int ConvertDevModeCopy(const DEVMODEW* source, DEVMODEW* destination);

/// The same for the public part alone; the destination's private part stays as it is.
int CopyPublicPart(const DEVMODEW* source, DEVMODEW* destination);

/// A 32-bit field of a public part, by its offset; the bytes that a shorter one lacks count as
/// zero.
DWORD PublicField(const DEVMODEW* record, size_t offset);

/// Copies the working record into a caller's output buffer: whole when the caller passed no input
/// record, else in the smaller of the two layouts. `input` may be the same record as `destination`,
/// which must hold as many bytes as the chosen layout. Gives 1, or 0 when that layout is unusable.
int CopyDevModeOut(const DevModeRecord* working, const DEVMODEW* input, DEVMODEW* destination);
