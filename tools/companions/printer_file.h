// A card printer that lives in a text file of the driver directory, SamplePrinter.txt: lines
// "name = value", # begins a comment. What is not there has the value of a new printer.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

class PrinterFile {
  public:
    /// Reads the file; without one no printer is connected.
    PrinterFile();
    /// Writes what was changed.
    ~PrinterFile();
    PrinterFile(const PrinterFile&) = delete;
    PrinterFile& operator=(const PrinterFile&) = delete;

    bool IsConnected() const { return connected_; }

    /// Empty when it is not there.
    std::string Text(std::string_view name) const;
    /// The numbers of a value, as many as `count`; those that it lacks are 0.
    std::vector<int> Numbers(std::string_view name, size_t count) const;
    int Number(std::string_view name) const { return Numbers(name, 1)[0]; }

    void SetText(std::string_view name, std::string_view text);
    void SetNumbers(std::string_view name, const std::vector<int>& numbers);

    /// Notes what a caller has done against the contract.
    void Complain(const std::string& complaint);

  private:
    bool connected_ = false;
    std::vector<std::string> lines_;
    bool changed_ = false;
};
