// A language file as its translator made it, and what is wrong with it.
#pragma once

#include "every_key.h"

#include <string>
#include <vector>

namespace kpdtool {

struct Translation {
    Key key;
    std::string text;
    int line;
};

/// What the driver has no use for, and what it would not understand.
struct Fault {
    /// "encoding", "line", "missing", "unused", "twice", "changed", "empty", "long"; the order in
    /// which they are told.
    const char* kind;
    int line;  ///< 0 when it is of no line
    Key key;   ///< empty for a fault of no text
    std::string detail;
};

class LanguageFile {
  public:
    explicit LanguageFile(const std::string& bytes);

    /// Empty for the encoding that the platform reads; else what the file has instead.
    const std::string& WrongEncoding() const { return wrongEncoding_; }
    /// The file as it should be encoded; nothing of one whose encoding is not known.
    std::string AsUtf16() const;

    /// Everything that is wrong with its form and, against the texts that the driver looks up, with
    /// its texts.
    std::vector<Fault> Check(const std::set<Key>& keys) const;

  private:
    void ReadLines();
    void ReadLine(const std::string& line, int number);

    std::string text_;  ///< UTF-8
    std::string wrongEncoding_;
    std::vector<Translation> translations_;
    std::vector<Fault> lineFaults_;
    std::set<std::string> sections_;  ///< as the platform compares them
    std::string section_;             ///< where the lines read last belong
};

}  // namespace kpdtool
