// The one thing that a sample does to the disk otherwise than through the platform's file calls:
// the stand-in has none that makes folders.
#pragma once

#include <windows.h>

#include <string>

/// True when the folder was made; the one above it must be there.
bool MakeFolder(const std::basic_string<WCHAR>& path);
