// Files, folders and searches on the drive that a folder on disk plays.
#include "host_state.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <unordered_set>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

using host::WideString;

constexpr WCHAR kWindowsDirectory[] = TEXT("C:\\Windows");
constexpr WCHAR kSystemDirectory[] = TEXT("C:\\Windows\\system32");
constexpr WCHAR kSeparators[] = TEXT("\\/");

/// The temporary folder that plays the drive, there as long as the object.
class Drive {
  public:
    Drive() {
        std::string name = fs::temp_directory_path() / "kpd-drive-XXXXXX";
        if (mkdtemp(name.data()) == nullptr) {
            host::Unsupported("no temporary folder like %s", name.c_str());
        }
        folder_ = name;
        fs::create_directories(folder_ / "Windows/system32/spool/drivers/x64/3");
        fs::create_directories(folder_ / "Windows/inf");
    }
    ~Drive() {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }
    const fs::path& folder() const { return folder_; }

  private:
    fs::path folder_;
};
std::unique_ptr<Drive> drive;  // made when first asked for

/// An open file; the set of all of them tells who shares with whom.
class OpenFile {
  public:
    OpenFile(const fs::path& place, DWORD access, DWORD share, int descriptor)
        : place_(place), access_(access), share_(share), descriptor_(descriptor) {
        all.insert(this);
    }
    ~OpenFile() {
        close(descriptor_);
        all.erase(this);
    }
    bool May(DWORD access) const { return (access_ & access) != 0; }
    int descriptor() const { return descriptor_; }

    static bool IsOpen(const fs::path& place) {
        return std::any_of(all.begin(), all.end(),
                           [&](const OpenFile* file) { return file->place_ == place; });
    }
    static bool Excludes(const fs::path& place, DWORD access, DWORD share) {
        return std::any_of(all.begin(), all.end(), [&](const OpenFile* file) {
            return file->place_ == place && ((Withheld(file->share_) & access) != 0 ||
                                             (Withheld(share) & file->access_) != 0);
        });
    }

  private:
    static DWORD Withheld(DWORD share) {
        return GENERIC_WRITE | ((share & FILE_SHARE_READ) != 0 ? 0 : GENERIC_READ);
    }
    static std::unordered_set<const OpenFile*> all;

    fs::path place_;
    DWORD access_;
    DWORD share_;
    int descriptor_;
};
std::unordered_set<const OpenFile*> OpenFile::all;

/// What a search found when it began, and how much of it was given out.
struct Search {
    std::vector<WIN32_FIND_DATAW> found;
    size_t next;
};

host::HandleTable<std::unique_ptr<OpenFile>> files(0x10000);
host::HandleTable<Search> searches(0x20000);

bool IsSeparator(WCHAR c) {
    return c == '\\' || c == '/';
}

bool Contains(const WideString& text, const WCHAR* characters) {
    return text.find_first_of(characters) != WideString::npos;
}

bool HasWildcards(const WideString& text) {
    return Contains(text, TEXT("*?"));
}

bool HasForbidden(const WideString& text) {
    return Contains(text, TEXT("<>\"|")) ||
           std::any_of(text.begin(), text.end(), [](WCHAR c) { return c < ' '; });
}

// The entry of a folder that a name means: of exactly that name, else of that name in another case;
// when there is neither, where it would be.
fs::path Entry(const fs::path& folder, const WideString& name) {
    fs::path exact = folder / host::ToUtf8(name);
    std::error_code ignored;
    if (fs::exists(exact, ignored)) {
        return exact;
    }
    for (const auto& entry : fs::directory_iterator(folder, ignored)) {
        if (host::SameText(host::FromUtf8(entry.path().filename()), name)) {
            return entry.path();
        }
    }
    return exact;
}

// Where the file of a path is on disk; nothing, with the last error set, when it can name none.
std::optional<fs::path> PlaceOf(LPCWSTR path) {
    if (path == nullptr || *path == 0) {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return {};
    }
    if (HasForbidden(path) || HasWildcards(path)) {
        SetLastError(ERROR_INVALID_NAME);
        return {};
    }
    return host::DiskPath(path);
}

bool IsFolder(const fs::path& place) {
    std::error_code ignored;
    return fs::is_directory(place, ignored);
}

DWORD MissingError(const fs::path& place) {
    return IsFolder(place.parent_path()) ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
}

DWORD AttributesOf(const fs::path& place) {
    struct stat info;
    if (stat(place.c_str(), &info) != 0) {
        return INVALID_FILE_ATTRIBUTES;
    }
    if (S_ISDIR(info.st_mode)) {
        return FILE_ATTRIBUTE_DIRECTORY;
    }
    return FILE_ATTRIBUTE_ARCHIVE | ((info.st_mode & S_IWUSR) == 0 ? FILE_ATTRIBUTE_READONLY : 0);
}

bool IsReadOnly(DWORD attributes) {
    return (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

// Why a file cannot be opened that way, or 0.
DWORD OpenError(const fs::path& place, DWORD access, DWORD share, DWORD disposition) {
    const DWORD attributes = AttributesOf(place);
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        const DWORD error = MissingError(place);
        return disposition != OPEN_EXISTING && error == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS
                                                                             : error;
    }
    if (disposition == CREATE_NEW) {
        return ERROR_FILE_EXISTS;
    }
    const DWORD effect = disposition == CREATE_ALWAYS ? access | GENERIC_WRITE : access;
    if (attributes == FILE_ATTRIBUTE_DIRECTORY ||
        (IsReadOnly(attributes) && (effect & GENERIC_WRITE) != 0)) {
        return ERROR_ACCESS_DENIED;
    }
    return OpenFile::Excludes(place, effect, share) ? ERROR_SHARING_VIOLATION : ERROR_SUCCESS;
}

int OpenOnDisk(const fs::path& place, DWORD access, DWORD disposition) {
    int flags = access == GENERIC_READ ? O_RDONLY : access == GENERIC_WRITE ? O_WRONLY : O_RDWR;
    if (disposition != OPEN_EXISTING) {
        flags |= O_CREAT | O_TRUNC;
    }
    const int descriptor = open(place.c_str(), flags | O_CLOEXEC, 0666);
    if (descriptor < 0) {
        host::Unsupported("cannot open %s: %s", place.c_str(), std::strerror(errno));
    }
    return descriptor;
}

// The file behind a handle if it was opened for that access; else null with the last error set.
OpenFile* FileOf(HANDLE handle, DWORD access) {
    std::unique_ptr<OpenFile>* file = files.Find(handle);
    if (file == nullptr) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    if (!(*file)->May(access)) {
        SetLastError(ERROR_ACCESS_DENIED);
        return nullptr;
    }
    return file->get();
}

// A question mark also stands for nothing before a period and at the end; ".*" also stands for
// nothing at the end.
bool Matches(const WCHAR* pattern, const WCHAR* name) {
    switch (*pattern) {
        case 0:
            return *name == 0;
        case '*':
            return Matches(pattern + 1, name) || (*name != 0 && Matches(pattern, name + 1));
        case '?':
            return Matches(pattern + 1, *name == 0 || *name == '.' ? name : name + 1);
        case '.':
            if (*name == 0) {
                return (pattern[1] == '*' || pattern[1] == '?') && Matches(pattern + 1, name);
            }
            [[fallthrough]];
        default:
            return *pattern == *name && Matches(pattern + 1, name + 1);
    }
}

FILETIME FileTime(const timespec& time) {
    constexpr std::int64_t kSecondsFrom1601To1970 = 11644473600;
    const std::int64_t ticks =
        (time.tv_sec + kSecondsFrom1601To1970) * 10'000'000 + time.tv_nsec / 100;
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

WIN32_FIND_DATAW Found(const fs::path& place, const WideString& name) {
    WIN32_FIND_DATAW found = {};
    struct stat info;
    if (name.size() >= MAX_PATH || stat(place.c_str(), &info) != 0) {
        host::Unsupported("cannot describe %s", place.c_str());
    }
    found.dwFileAttributes = AttributesOf(place);
    // The time of creation is not kept; a file is as old as what is in it.
    found.ftCreationTime = found.ftLastWriteTime = FileTime(info.st_mtim);
    found.ftLastAccessTime = FileTime(info.st_atim);
    if (S_ISREG(info.st_mode)) {
        found.nFileSizeHigh = static_cast<DWORD>(static_cast<std::uint64_t>(info.st_size) >> 32);
        found.nFileSizeLow = static_cast<DWORD>(info.st_size);
    }
    name.copy(found.cFileName, MAX_PATH - 1);
    return found;
}

// What matches in a folder, in the order of the platform: the folder itself and the one above
// (which the root does not list), then by name.
std::vector<WIN32_FIND_DATAW> FindIn(const fs::path& folder, const WideString& mask) {
    std::vector<WideString> names;
    for (const auto& entry : fs::directory_iterator(folder)) {
        names.push_back(host::FromUtf8(entry.path().filename()));
    }
    std::sort(names.begin(), names.end(), [](const WideString& a, const WideString& b) {
        return host::FoldCase(a) < host::FoldCase(b);
    });
    if (folder != host::DriveFolder()) {
        names.insert(names.begin(), {TEXT("."), TEXT("..")});
    }
    const WideString folded = host::FoldCase(mask);
    std::vector<WIN32_FIND_DATAW> found;
    for (const WideString& name : names) {
        if (Matches(folded.c_str(), host::FoldCase(name).c_str())) {
            found.push_back(Found(folder / host::ToUtf8(name), name));
        }
    }
    return found;
}

// The length of the text if it fits, else the size that it needs with its end.
UINT GiveDirectory(const WideString& text, LPWSTR buffer, UINT length) {
    if (host::FailsNow(host::Call::kFile)) {
        return 0;
    }
    const UINT needed = static_cast<UINT>(text.size()) + 1;
    if (buffer == nullptr || length < needed) {
        return needed;
    }
    std::copy_n(text.c_str(), needed, buffer);
    return needed - 1;
}

}  // namespace

HANDLE WINAPI CreateFileW(LPCWSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                          DWORD disposition, DWORD attributes, HANDLE templateFile) {
    if (access == 0 || (access & ~(GENERIC_READ | GENERIC_WRITE)) != 0 ||
        (share & ~DWORD{FILE_SHARE_READ}) != 0 || security != nullptr || disposition < CREATE_NEW ||
        disposition > OPEN_EXISTING || (attributes & ~DWORD{FILE_ATTRIBUTE_NORMAL}) != 0 ||
        templateFile != nullptr) {
        host::Unsupported("CreateFileW with access %#x, share %#x, disposition %u, attributes %#x",
                          access, share, disposition, attributes);
    }
    if (host::FailsNow(host::Call::kFile)) {
        return INVALID_HANDLE_VALUE;
    }
    const std::optional<fs::path> place = PlaceOf(path);
    if (!place) {
        return INVALID_HANDLE_VALUE;
    }
    if (const DWORD error = OpenError(*place, access, share, disposition)) {
        SetLastError(error);
        return INVALID_HANDLE_VALUE;
    }
    std::error_code ignored;
    const bool replaces = disposition == CREATE_ALWAYS && fs::exists(*place, ignored);
    const int descriptor = OpenOnDisk(*place, access, disposition);
    SetLastError(replaces ? ERROR_ALREADY_EXISTS : ERROR_SUCCESS);
    return files.Add(std::make_unique<OpenFile>(*place, access, share, descriptor));
}

HANDLE WINAPI CreateFileA(LPCSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                          DWORD disposition, DWORD attributes, HANDLE templateFile) {
    WCHAR wide[MAX_PATH];
    if (MultiByteToWideChar(CP_ACP, 0, path, -1, wide, MAX_PATH) == 0) {
        SetLastError(ERROR_FILENAME_EXCED_RANGE);
        return INVALID_HANDLE_VALUE;
    }
    return CreateFileW(wide, access, share, security, disposition, attributes, templateFile);
}

BOOL WINAPI ReadFile(HANDLE file, LPVOID buffer, DWORD size, LPDWORD read, OVERLAPPED* overlapped) {
    if (read == nullptr || overlapped != nullptr) {
        host::Unsupported("ReadFile without a count or overlapped");
    }
    *read = 0;
    if (host::FailsNow(host::Call::kFile)) {
        return FALSE;
    }
    OpenFile* opened = FileOf(file, GENERIC_READ);
    if (opened == nullptr) {
        return FALSE;
    }
    const ssize_t count = ::read(opened->descriptor(), buffer, size);
    if (count < 0) {
        host::Unsupported("cannot read: %s", std::strerror(errno));
    }
    *read = static_cast<DWORD>(count);
    return TRUE;
}

BOOL WINAPI WriteFile(HANDLE file, LPCVOID data, DWORD size, LPDWORD written,
                      OVERLAPPED* overlapped) {
    if (written == nullptr || overlapped != nullptr) {
        host::Unsupported("WriteFile without a count or overlapped");
    }
    *written = 0;
    if (host::FailsNow(host::Call::kFile)) {
        return FALSE;
    }
    OpenFile* opened = FileOf(file, GENERIC_WRITE);
    if (opened == nullptr) {
        return FALSE;
    }
    if (::write(opened->descriptor(), data, size) != static_cast<ssize_t>(size)) {
        host::Unsupported("cannot write %u bytes: %s", size, std::strerror(errno));
    }
    *written = size;
    return TRUE;
}

DWORD WINAPI GetFileSize(HANDLE file, LPDWORD high) {
    if (host::FailsNow(host::Call::kFile)) {
        return INVALID_FILE_SIZE;
    }
    OpenFile* opened = FileOf(file, GENERIC_READ | GENERIC_WRITE);
    struct stat info;
    if (opened == nullptr || fstat(opened->descriptor(), &info) != 0) {
        return INVALID_FILE_SIZE;
    }
    const auto size = static_cast<std::uint64_t>(info.st_size);
    if (high != nullptr) {
        *high = static_cast<DWORD>(size >> 32);
    }
    return static_cast<DWORD>(size);
}

BOOL WINAPI CloseHandle(HANDLE handle) {
    return files.Remove(handle) ? TRUE : host::Fail(ERROR_INVALID_HANDLE);
}

DWORD WINAPI GetFileAttributesW(LPCWSTR path) {
    if (host::FailsNow(host::Call::kFile)) {
        return INVALID_FILE_ATTRIBUTES;
    }
    const std::optional<fs::path> place = PlaceOf(path);
    if (!place) {
        return INVALID_FILE_ATTRIBUTES;
    }
    const DWORD attributes = AttributesOf(*place);
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        SetLastError(MissingError(*place));
    }
    return attributes;
}

HANDLE WINAPI FindFirstFileW(LPCWSTR pattern, LPWIN32_FIND_DATAW found) {
    if (host::FailsNow(host::Call::kFile)) {
        return INVALID_HANDLE_VALUE;
    }
    const WideString text = pattern == nullptr ? WideString() : pattern;
    const size_t maskStart = text.find_last_of(kSeparators) + 1;
    const WideString mask = text.substr(maskStart);
    if (mask.ends_with('.') || (maskStart == 0 && !mask.empty())) {
        host::Unsupported("FindFirstFileW of '%s'", host::ToUtf8(text).c_str());
    }
    if (HasForbidden(mask)) {
        SetLastError(ERROR_INVALID_NAME);
        return INVALID_HANDLE_VALUE;
    }
    const std::optional<fs::path> folder = PlaceOf(text.substr(0, maskStart).c_str());
    if (!folder) {
        return INVALID_HANDLE_VALUE;
    }
    if (!IsFolder(*folder)) {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return INVALID_HANDLE_VALUE;
    }
    Search search = {FindIn(*folder, mask), 1};
    if (search.found.empty()) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return INVALID_HANDLE_VALUE;
    }
    *found = search.found.front();
    return searches.Add(std::move(search));
}

BOOL WINAPI FindNextFileW(HANDLE search, LPWIN32_FIND_DATAW found) {
    if (host::FailsNow(host::Call::kFile)) {
        return FALSE;
    }
    Search* state = searches.Find(search);
    if (state == nullptr) {
        return host::Fail(ERROR_INVALID_HANDLE);
    }
    if (state->next == state->found.size()) {
        return host::Fail(ERROR_NO_MORE_FILES);
    }
    *found = state->found[state->next++];
    return TRUE;
}

BOOL WINAPI FindClose(HANDLE search) {
    return searches.Remove(search) ? TRUE : host::Fail(ERROR_INVALID_HANDLE);
}

UINT WINAPI GetSystemDirectoryW(LPWSTR buffer, UINT length) {
    return GiveDirectory(kSystemDirectory, buffer, length);
}

UINT WINAPI GetWindowsDirectoryW(LPWSTR buffer, UINT length) {
    return GiveDirectory(kWindowsDirectory, buffer, length);
}

namespace host {

fs::path DriveFolder() {
    if (drive == nullptr) {
        drive = std::make_unique<Drive>();
    }
    return drive->folder();
}

fs::path DiskPath(LPCWSTR path) {
    const WideString text = path;
    if (text.size() < 3 || (text[0] != 'C' && text[0] != 'c') || text[1] != ':' ||
        !IsSeparator(text[2]) || text.find(':', 2) != WideString::npos) {
        Unsupported("path '%s' is none on drive C", ToUtf8(text).c_str());
    }
    const fs::path root = DriveFolder();
    fs::path place = root;
    size_t end = 2;
    while (end < text.size()) {
        const size_t start = end + 1;
        end = std::min(text.find_first_of(kSeparators, start), text.size());
        const WideString name = text.substr(start, end - start);
        if (name == TEXT("..")) {
            place = place == root ? root : place.parent_path();
        } else if (!name.empty() && name != TEXT(".")) {
            place = Entry(place, name);
        }
    }
    return place;
}

void ResetFiles() {
    files.Clear();
    searches.Clear();
    drive.reset();
}

unsigned HeldFiles() {
    return files.Count();
}

unsigned HeldSearches() {
    return searches.Count();
}

}  // namespace host
