// Prompts of the stand-in, which never stay on a screen. Its drive is a temporary one: a file that
// the script names on the real disk takes the way through the user's documents there.
#include "prompts.h"

#include "platform/host.h"
#include "tools/kpdtool/wide_text.h"

#include <algorithm>
#include <filesystem>

namespace kpdtool {
namespace {

namespace fs = std::filesystem;

size_t boxesTaken = 0;

/// A file of the real disk and its place on the stand-in's drive.
struct Borrowed {
    fs::path real;
    fs::path played;
};
std::vector<Borrowed> borrowed;

bool IsOnDrive(const std::string& file) {
    return file.size() > 1 && file[1] == ':';
}

std::basic_string<WCHAR> Borrow(const std::string& file) {
    const fs::path real = PathFrom(file);
    const auto played = TEXT("C:\\Users\\user\\Documents\\") + FromUtf8(real.filename().string());
    const fs::path place = host::DiskPath(played.c_str());
    if (std::ranges::find(borrowed, place, &Borrowed::played) != borrowed.end()) {
        return played;  // as the session has left it
    }
    std::error_code ignored;
    fs::create_directories(place.parent_path(), ignored);
    fs::copy_file(real, place, fs::copy_options::overwrite_existing, ignored);
    borrowed.push_back({real, place});
    return played;
}

}  // namespace

Prompts::Prompts() {
    boxesTaken = host::MessageBoxes().size();
}

// What was written is given back.
Prompts::~Prompts() {
    std::error_code ignored;
    for (const Borrowed& file : borrowed) {
        fs::copy_file(file.played, file.real, fs::copy_options::overwrite_existing, ignored);
    }
    borrowed.clear();
}

void Prompts::AnswerBox(int button) {
    host::AnswerMessageBox(button);
}

void Prompts::AnswerFile(const std::string& file) {
    host::AnswerFileDialog(file.empty() || IsOnDrive(file) ? FromUtf8(file) : Borrow(file));
}

bool Prompts::IsOpen() const {
    return false;
}

std::vector<std::string> Prompts::TakeTexts() {
    std::vector<std::string> texts;
    for (; boxesTaken < host::MessageBoxes().size(); ++boxesTaken) {
        texts.push_back(ToUtf8(host::MessageBoxes()[boxesTaken].text));
    }
    return texts;
}

std::string Prompts::TakeProblem() {
    return {};
}

}  // namespace kpdtool
