// What a caller hands over to an enumeration or the designer, and whether it is as it must be.
#pragma once

#include "sample_file.h"

/// The parameter record.
struct AreaRequest {
    DWORD Size;                   //   0
    DWORD Constant4;              //   4
    BYTE Surface;                 //   8
    BYTE Orientation;             //   9  1 portrait, 2 landscape
    WORD Index;                   //  10
    DWORD FirstExtent;            //  12
    DWORD SecondExtent;           //  16
    WORD HorizontalResolution;    //  20
    WORD VerticalResolution;      //  22
    BYTE Constant24;              //  24
    BYTE Constant25;              //  25
    BYTE Zero26[6];               //  26
    const char* DriverDirectory;  //  32
    const char* AreaFolder;       //  40
    char LanguageFile[120];       //  48
};
static_assert(sizeof(AreaRequest) == 168);

/// The sample's file during a call, for the rules of that call.
class CallNotes : public SampleFile {
  public:
    explicit CallNotes(const char* call);

    /// Complains unless a rule holds.
    bool Require(bool rule, const std::string& complaint);
    /// Notes the call itself with what matters of it.
    void Note(const std::string& text);

    bool HasFault(std::string_view fault) const { return IsThere() && Text("fault") == fault; }

  private:
    const char* call_;
};

enum class AreaCall { kEnumeration, kDesigner };

/// Checks a record whole. False for one that nothing can be done with.
bool CheckRequest(CallNotes& notes, const AreaRequest* request, AreaCall call);

/// The driver directory as every call hands it over.
void CheckDirectory(CallNotes& notes, const char* directory);

/// While the designer runs, the driver directory is the last that PATH names.
void CheckSearchPath(CallNotes& notes);

/// A record in words.
std::string Describe(const AreaRequest& request);
/// The last folder that PATH names.
std::string LastOfSearchPath();

/// A text between quotation marks, as notes have it.
std::string Quoted(const char* narrow);
