// A device I/O library as the driver package may have one, with a printer whose motors' speeds it
// keeps.
#include "motor_companion.h"

#ifdef _WIN32
#define EXPORTED extern "C" __declspec(dllexport)
#else
#define EXPORTED extern "C"
#endif

namespace {

MotorNotes notes;

}  // namespace

EXPORTED MotorNotes* Notes() {
    return &notes;
}

EXPORTED std::uint32_t FineAdjustMotorParameters(const std::uint16_t* printer, std::uint32_t write,
                                                 std::int8_t* first, std::int8_t* second) {
    int length = 0;
    for (; length < 63 && printer[length] != 0; ++length) {
        notes.Printer[length] = printer[length];
    }
    notes.Printer[length] = 0;
    (write == 1 ? notes.Writes : notes.Reads) += 1;
    (write == 1 ? notes.First : *first) = write == 1 ? *first : notes.First;
    (write == 1 ? notes.Second : *second) = write == 1 ? *second : notes.Second;
    return 0;
}
