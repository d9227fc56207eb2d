// A laminator's parameters: the exchange of its records, and what stands in them.
#include "ui/pages/lamination/lamination_parameters.h"

#include <strsafe.h>

#include <cstdint>

BYTE ReadFilm(const DriverContext& context, LaminationRecord& record) {
    return ReadLaminationParameters(context.PrinterName,
                                    context.WorkingDevMode.Private.LaminationOption, record);
}

void WriteFilm(const DriverContext& context, const LaminationRecord& record) {
    WriteLaminationParameters(context.PrinterName, context.WorkingDevMode.Private.LaminationOption,
                              record);
}

int DwellPosition(const LaminationRecord& record) {
    return record.DwellTime * 300 / 250;
}

void SetDwellPosition(LaminationRecord& record, int position) {
    record.DwellTime = static_cast<WORD>(position * 250 / 300);
}

void FormatDwell(int thousandths, WCHAR (&text)[kDwellTextLength]) {
    WCHAR number[16];
    StringCchPrintfW(number, std::size(number), TEXT("%4d"), thousandths);
    const WCHAR seconds = number[0] == ' ' ? WCHAR{'0'} : number[0];
    StringCchPrintfW(text, kDwellTextLength, TEXT("%c.%c%c"), seconds, number[1], number[2]);
}

int Temperature(const LaminationRecord& record) {
    return record.Temperature;
}

void SetTemperature(LaminationRecord& record, int celsius) {
    record.Temperature = static_cast<WORD>(celsius);
}

int LaOffset(const LaminationRecord& record) {
    return static_cast<std::int8_t>(record.LaPosition - record.LaReference);
}

void SetLaOffset(LaminationRecord& record, int offset) {
    record.LaPosition = static_cast<std::int8_t>(offset + record.LaReference);
}

int LbOffset(const LaminationRecord& record) {
    return static_cast<std::int16_t>(record.LbPosition - record.LbReference);
}

void SetLbOffset(LaminationRecord& record, int offset) {
    record.LbPosition = static_cast<WORD>(offset + record.LbReference);
}
