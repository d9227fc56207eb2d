// A text file that a sample keeps its state in: lines "name = value", # begins a comment.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

/// The path of a file of the driver directory.
std::basic_string<WCHAR> DriverFile(const WCHAR* name);

class SampleFile {
  public:
    /// How often a file that is in use is tried.
    static constexpr int kPatiently = 100000;

    /// Reads the file of that path.
    explicit SampleFile(std::basic_string<WCHAR> path, int tries = kPatiently);
    /// Writes what was changed.
    ~SampleFile();
    SampleFile(const SampleFile&) = delete;
    SampleFile& operator=(const SampleFile&) = delete;

    bool IsThere() const { return there_; }

    /// Empty when it is not there.
    std::string Text(std::string_view name) const;
    /// Those of all lines of that name.
    std::vector<std::string> Texts(std::string_view name) const;
    /// The numbers of a value, as many as `count`; those that it lacks are 0.
    std::vector<int> Numbers(std::string_view name, size_t count) const;
    int Number(std::string_view name) const { return Numbers(name, 1)[0]; }

    void SetText(std::string_view name, std::string_view text);
    void SetNumbers(std::string_view name, const std::vector<int>& numbers);

    /// Takes all lines of that name away.
    void Remove(std::string_view name);
    /// Adds a line, whether or not there is one of that name.
    void Add(std::string_view name, std::string_view text);

    /// Notes what a caller has done against the contract.
    void Complain(std::string_view complaint) { Add("complaint", complaint); }

  private:
    HANDLE OpenAlone(DWORD access, DWORD disposition) const;

    std::basic_string<WCHAR> path_;
    int tries_;
    bool there_ = false;
    std::vector<std::string> lines_;
    bool changed_ = false;
};
