// The computer that the tool and the tests work on: natively the one that the stand-in plays, in
// the Windows build the real one, whose spooler gets real printers. The one place that differs is
// the source file linked: computer_native.cpp or computer_windows.cpp.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
#include <vector>

#include "core/driver_ui_contract.h"

namespace computer {

using WideString = std::basic_string<WCHAR>;

struct PrinterSpec {
    WideString name;
    WideString model;      ///< name of the printer's driver
    WideString port = {};  ///< empty: a local port
    /// Device mode record for the spooler to keep as the printer's default. Empty: the driver's own
    /// default for the model, which a spooler asks for when a printer is added.
    std::vector<BYTE> defaultRecord = {};
    /// A printer of another computer. On the real computer the driver takes it for one by its port,
    /// which must begin with two backslashes or be empty.
    bool remote = false;
};

/// Adds a printer with empty printer data, and its driver when that is missing, or replaces the
/// printer of that name when an earlier call added it. Gives an empty text, or in one line why it
/// could not be done.
std::string InstallPrinter(const PrinterSpec& spec);

/// Removes a printer that InstallPrinter added, and on Windows what its pages keep of the user's.
void RemovePrinter(const WideString& name);

/// Makes this the user's UI language for the driver code linked into this program. Gives an empty
/// text or the reason why not.
std::string SetUiLanguage(LANGID language);

/// The driver's entry points as an application finds them when it loads the driver now: natively in
/// this program, in the Windows build in kpdui.dll beside it, which has the language of the real
/// user.
struct Driver {
    decltype(&DrvDocumentProperties) DocumentProperties;
    decltype(&DrvDocumentPropertySheets) DocumentPropertySheets;
};
/// Also makes the driver code linked into this program as usable as the loaded one. Gives an empty
/// text or the reason why not.
std::string LoadDriver(Driver& driver);

/// Why nobody can use a sheet shown on this computer; empty when a user can.
std::string WhyNoUser();

/// Where a path of the platform is on disk.
std::filesystem::path DiskPath(const WideString& path);

/// The folder on disk where this program lies.
std::filesystem::path ProgramFolder();

/// The folder on disk where the driver package lies.
std::filesystem::path DriverFolder();

/// Copies the files of a driver package, those of its subfolders too, into DriverFolder as far as
/// they are not there or older. Gives an empty text or the reason why not.
std::string InstallPackage(const std::filesystem::path& package);

/// The same with what is delivered as it lies in the folder `package` of this project.
std::string InstallPackageSources(const std::filesystem::path& sources);

/// A folder for a program's own files, as the platform names it, without trailing backslash.
WideString TemporaryFolder();

/// A text that a profile file is asked for.
struct ProfileLookup {
    WideString file;
    WideString section;
    WideString key;
};

/// Notes, while it lives, every text that the driver code linked into this program asks for, found
/// or not. One at a time.
class ProfileNotes {
  public:
    ProfileNotes();
    ~ProfileNotes();
    ProfileNotes(const ProfileNotes&) = delete;
    ProfileNotes& operator=(const ProfileNotes&) = delete;

    std::vector<ProfileLookup> Lookups() const;

  private:
    size_t before_ = 0;  ///< those of before, where they are noted anyway
};

/// Sees to it that the user has an application-data folder, as a real one has.
void ProvideApplicationData();

/// What differs between the computers: adds the printer with the default record given.
std::string AddToSpooler(const PrinterSpec& spec);

}  // namespace computer
