// A laminator's parameters as the Lamination page shows and sends them: positions of its sliders
// and offsets of the film.
#pragma once

#include "companions/device_io.h"
#include "core/context.h"

/// Asks for the parameters of the job's film. Gives what the laminator answered, 0 without an
/// answer; only one that answers kLaminatorFound is written to.
BYTE ReadFilm(const DriverContext& context, LaminationRecord& record);
inline constexpr BYTE kLaminatorFound = 1;
/// Sends them for the job's film.
void WriteFilm(const DriverContext& context, const LaminationRecord& record);

// The dwell time in thousandths of a second an inch. Whole units of the laminator are longer, so
// that a position read is not always one that is sent.
int DwellPosition(const LaminationRecord& record);
void SetDwellPosition(LaminationRecord& record, int position);

/// Writes thousandths with two decimals that are cut, not rounded: one digit before the point, so
/// that nobody can tell ten seconds and more, and blanks for what is less than a tenth. `text` has
/// kDwellTextLength characters.
constexpr int kDwellTextLength = 5;
void FormatDwell(int thousandths, WCHAR (&text)[kDwellTextLength]);

int Temperature(const LaminationRecord& record);
void SetTemperature(LaminationRecord& record, int celsius);

// Of the film from the laminator's reference position. Both wrap around as the positions do.
int LaOffset(const LaminationRecord& record);
void SetLaOffset(LaminationRecord& record, int offset);
int LbOffset(const LaminationRecord& record);
void SetLbOffset(LaminationRecord& record, int offset);
