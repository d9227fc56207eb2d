// What the device I/O library of the tests notes. It stands in the library, whose own number of
// users keeps it.
#pragma once

#include <cstdint>

struct MotorNotes {
    std::int8_t First, Second;  ///< the printer's speeds
    int Reads, Writes;
    std::uint16_t Printer[64];  ///< the last name, terminated
};
