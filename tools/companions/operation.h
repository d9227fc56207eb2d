// How a sample library exports what it is called for.
#pragma once

#ifdef _WIN32
#define OPERATION extern "C" __declspec(dllexport)
#else
#define OPERATION extern "C" __attribute__((visibility("default")))
#endif
