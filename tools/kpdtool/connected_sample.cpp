// The files of connected samples.
#include "connected_sample.h"

#include "wide_text.h"

#include <fstream>
#include <iterator>

namespace kpdtool {

std::string ReadState(const std::string& file) {
    std::ifstream input(PathFrom(file), std::ios::binary);
    if (!input) {
        throw ToolError(file + ": cannot be read");
    }
    return {std::istreambuf_iterator<char>(input), {}};
}

void WriteState(const std::string& file, const std::string& state) {
    std::ofstream(PathFrom(file), std::ios::binary) << state;
}

void AddDevice(CLI::App& command, std::string& file) {
    command.add_option("--device", file,
                       "Connect the sample printer kept in this file, which is written again");
}

void AddDesigner(CLI::App& command, std::string& file) {
    command.add_option("--designer", file,
                       "Install the sample of the print-area designer with the state in this "
                       "file, which is written again");
}

}  // namespace kpdtool
