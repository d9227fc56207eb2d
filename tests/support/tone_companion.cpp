// A tone-mapping library as the driver package may have one. Whoever calls it is stopped.
#include <cstdlib>

#ifdef _WIN32
#define OPERATION extern "C" __declspec(dllexport) void
#else
#define OPERATION extern "C" void
#endif

OPERATION InitialParam() {
    std::abort();
}
OPERATION ReleaseParam() {
    std::abort();
}
OPERATION SetBrightTable() {
    std::abort();
}
OPERATION MapTableImage() {
    std::abort();
}
