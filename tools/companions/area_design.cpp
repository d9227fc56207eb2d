// A sample of the print-area designer, AreaDesign.dll, for computers without the real one. It knows
// a few standard areas and those kept as text files in the print-area folder, and has a simple
// dialog in which their blocks are moved. It notes what was called, and what a caller does against
// the contract, in a file of the driver directory, SampleDesigner.txt, if that is there. Its lines:
//
//   dialog      accept, accept and the index of an area, or cancel: how the dialog ends without
//               being shown
//   standard    no: only the areas kept as files are listed
//   fault       unterminated name, enormous count, endless chain, zero width, zero height, foreign
//               index (the dialog gives one that is not listed), no data, no enumeration, no front
//               enumeration and no back enumeration (of those made in turn the first, the third and
//               so on, or the others), no designer, no name (of the area chosen in the dialog), no
//               entry point
//   calls       no: what is called is not noted
//   call        what was called, with what mattered
//   made        a file or folder of print areas that was not there before
//   complaint   what a caller has done against the contract
//
// A print area's file ends with ".txt" and has these lines; one that lacks a line other than a
// block or has one that cannot be read is no area:
//
//   name        of the area
//   orientation portrait or landscape: the card that it is made for
//   layout      width and height, in units of the area's own
//   card, area  colour of the card and of the area: red, green and blue, 0 to 255
//   block       kind (1 is left white), x and y from the card's bottom left corner, width, height
#include "area_dialog.h"
#include "area_record.h"
#include "area_request.h"
#include "narrow_text.h"
#include "operation.h"
#include "tools/kpdtool/wide_text.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <optional>

namespace {

// Results have one byte; what the register has above it says nothing.
constexpr DWORD kYes = 0xEEEEEE01;
constexpr DWORD kNo = 0xEEEEEE00;

// ---- What callers hold --------------------------------------------------------------------------

struct Object {
    bool IsDesigner;
    bool IsFinished = false;
    std::vector<PrintArea> Areas = {};
    std::vector<std::unique_ptr<GivenArea>> Given = {};
};

// Its end, when the library is unloaded, tells what was not finished. At a process's end too: the
// kernel's file calls are all that this needs, and where the file has gone nothing is written.
class Objects {
  public:
    ~Objects();

    /// Its handle, which nothing is behind and which is never given twice.
    void* Add(bool isDesigner) {
        all_.push_back(std::make_unique<Object>(Object{isDesigner}));
        return HandleOf(all_.size() - 1);
    }
    /// The object of the one handle given, unless it is finished.
    Object* Find(CallNotes& notes, void* designer, void* enumeration);

    std::string NameOf(const Object& object) const;

    unsigned Enumerations = 0;  ///< asked for

  private:
    static void* HandleOf(size_t index) {
        return reinterpret_cast<void*>((index + 1) * 16 + 0xA000);
    }

    std::vector<std::unique_ptr<Object>> all_;
};
Objects objects;

Objects::~Objects() {
    CallNotes notes("unloading");
    for (const auto& object : all_) {
        notes.Require(object->IsFinished, NameOf(*object) + " is not finished");
        notes.Require(object->Given.empty(),
                      "area data of " + NameOf(*object) + " is not released");
    }
    notes.Note("");
}

std::string Objects::NameOf(const Object& object) const {
    size_t number = 0;
    for (const auto& other : all_) {
        number += other->IsDesigner == object.IsDesigner;
        if (other.get() == &object) {
            break;
        }
    }
    return (object.IsDesigner ? "designer " : "enumeration ") + std::to_string(number);
}

Object* Objects::Find(CallNotes& notes, void* designer, void* enumeration) {
    if (!notes.Require((designer == nullptr) != (enumeration == nullptr),
                       designer == nullptr ? "no handle" : "two handles")) {
        return nullptr;
    }
    void* handle = designer != nullptr ? designer : enumeration;
    for (size_t i = 0; i < all_.size(); ++i) {
        if (HandleOf(i) == handle) {
            Object& object = *all_[i];
            return notes.Require(!object.IsFinished, "a handle that is finished") &&
                           notes.Require(object.IsDesigner == (designer != nullptr),
                                         "a handle of the other kind")
                       ? &object
                       : nullptr;
        }
    }
    notes.Require(false, "a handle that was never given");
    return nullptr;
}

// ---- Areas --------------------------------------------------------------------------------------

std::vector<PrintArea> AreasFor(const CallNotes& notes, const AreaRequest& request) {
    const DWORD longExtent = std::max(request.FirstExtent, request.SecondExtent);
    return ListAreas({.Surface = static_cast<BYTE>(request.Surface & 7),
                      .IsUpright = request.Orientation == 1,
                      .LongExtent = static_cast<WORD>(longExtent),
                      .HasStandard = notes.Text("standard") != "no"},
                     FromNarrow(request.AreaFolder));
}

// None when it is not listed, which a caller may not ask for but the first one's, and where the
// sample itself has led it astray.
const PrintArea* AreaAt(CallNotes& notes, const Object& object, DWORD index) {
    if (index < object.Areas.size()) {
        return &object.Areas[index];
    }
    notes.Require((index == 0 && object.Areas.empty()) || notes.HasFault("enormous count") ||
                      notes.HasFault("foreign index"),
                  "an area that is not listed");
    return nullptr;
}

// What notes say of a call for one of an object's areas.
std::string Describe(const Object& object, DWORD index) {
    return objects.NameOf(object) + " index " + std::to_string(index);
}

// ---- The dialog ---------------------------------------------------------------------------------

// How the file answers it, if it does: whether it is accepted and with which area.
struct DialogAnswer {
    bool Accepts;
    size_t Chosen;
};
std::optional<DialogAnswer> AnswerInFile(const CallNotes& notes, size_t chosen) {
    const std::string text = notes.Text("dialog");
    if (text == "cancel") {
        return DialogAnswer{false, chosen};
    }
    constexpr std::string_view kAccept = "accept";
    if (!text.starts_with(kAccept)) {
        return {};
    }
    return DialogAnswer{true, text == kAccept ? chosen
                                              : static_cast<size_t>(std::strtoul(
                                                    text.c_str() + kAccept.size(), nullptr, 10))};
}

DialogAnswer ShowDialog(Object& designer, size_t chosen, const AreaRequest& request,
                        std::vector<WideString>& made) {
    const bool accepts =
        RunAreaDialog(designer.Areas, chosen, FromNarrow(request.AreaFolder), made);
    return {accepts, chosen};
}

}  // namespace

OPERATION DWORD WINAPI NewPrintAreaDlg(void* owner, const char* directory, void** designer,
                                       DWORD fourth, DWORD fifth) {
    CallNotes notes("NewPrintAreaDlg");
    notes.Require(owner == nullptr, "an owner");
    notes.Require(fourth == 0 && fifth == 0, "the last arguments are not 0");
    CheckDirectory(notes, directory);
    if (!notes.Require(designer != nullptr, "no place for the designer") ||
        notes.HasFault("no designer")) {
        notes.Note("gives none");
        return kNo;
    }
    *designer = objects.Add(true);
    notes.Note("gives " + objects.NameOf(*objects.Find(notes, *designer, nullptr)));
    return kYes;
}

// Nothing of the file is held while the dialog is shown: whoever is behind it may call in.
OPERATION DWORD WINAPI ShowDoModalDialog(void* handle, DWORD second, AreaRequest* request,
                                         DWORD* outcome) {
    Object* designer = nullptr;
    std::optional<DialogAnswer> answer;
    std::string described;
    {
        CallNotes notes("ShowDoModalDialog");
        notes.Require(second == 1, "the second argument is not 1");
        CheckSearchPath(notes);
        designer = objects.Find(notes, handle, nullptr);
        if (!CheckRequest(notes, request, AreaCall::kDesigner) || designer == nullptr ||
            !notes.Require(outcome != nullptr, "no place for the outcome")) {
            return kNo;
        }
        notes.Require(*outcome == 2, "the outcome is not preset to 2");
        designer->Areas = AreasFor(notes, *request);
        AreaAt(notes, *designer, request->Index);
        answer = AnswerInFile(notes, request->Index);
        described = objects.NameOf(*designer) + " " + ::Describe(*request) + " path " +
                    Quoted(LastOfSearchPath().c_str());
    }
    std::vector<WideString> made;
    if (!answer) {
        answer = ShowDialog(*designer, request->Index, *request, made);
    }
    CallNotes notes("ShowDoModalDialog");
    if (answer->Accepts) {
        const bool foreign = notes.HasFault("foreign index");
        request->Index = foreign ? WORD{0xFFFF} : static_cast<WORD>(answer->Chosen);
        *outcome = 1;
        described += " accepted index " + std::to_string(request->Index);
    }
    notes.Note(described);
    for (const WideString& path : made) {
        notes.Add("made", kpdtool::ToUtf8(path));
    }
    return kNo;  // nobody looks at it
}

OPERATION DWORD WINAPI CreateEnumPrntAreaClass(void** enumeration, const char* directory,
                                               DWORD third, const AreaRequest* request,
                                               DWORD* count) {
    CallNotes notes("CreateEnumPrntAreaClass");
    notes.Require(third == 1, "the third argument is not 1");
    CheckDirectory(notes, directory);
    if (!CheckRequest(notes, request, AreaCall::kEnumeration) ||
        !notes.Require(enumeration != nullptr && count != nullptr,
                       "no place for the enumeration or its count")) {
        return kNo;
    }
    notes.Require(*count == 0, "the count is not preset to 0");
    const bool front = objects.Enumerations++ % 2 == 0;
    if (notes.HasFault("no enumeration") ||
        notes.HasFault(front ? "no front enumeration" : "no back enumeration")) {
        notes.Note(::Describe(*request) + " gives none");
        return kNo;
    }
    *enumeration = objects.Add(false);
    Object& object = *objects.Find(notes, nullptr, *enumeration);
    object.Areas = AreasFor(notes, *request);
    *count =
        notes.HasFault("enormous count") ? 0xFFFFFFFF : static_cast<DWORD>(object.Areas.size());
    notes.Note(::Describe(*request) + " gives " + objects.NameOf(object) + " count " +
               std::to_string(*count));
    return kYes;
}

OPERATION DWORD WINAPI GetPrintAreaName(void* designer, void* enumeration, DWORD index, char* name,
                                        DWORD* size) {
    constexpr DWORD kRoom = 260;
    CallNotes notes("GetPrintAreaName");
    const Object* object = objects.Find(notes, designer, enumeration);
    if (!notes.Require(name != nullptr && size != nullptr, "no place for the name or its size") ||
        !notes.Require(*size == kRoom, "the size is not preset to 260") || object == nullptr) {
        return kNo;
    }
    // All of the room is written, so that a caller has to have it.
    std::memset(name, '?', kRoom);
    const PrintArea* area = AreaAt(notes, *object, index);
    if (area == nullptr || (object->IsDesigner && notes.HasFault("no name"))) {
        return kNo;
    }
    if (!notes.HasFault("unterminated name")) {
        const std::string text = ToNarrow(area->Name);
        std::memcpy(name, text.c_str(), text.size() + 1);
        *size = static_cast<DWORD>(text.size()) + 1;
    }
    notes.Note(Describe(*object, index) + " \"" + kpdtool::ToUtf8(area->Name) + '"');
    return kYes;
}

OPERATION DWORD WINAPI GetPrintAreaData(void* designer, void* enumeration, DWORD index,
                                        AreaRecord** data) {
    CallNotes notes("GetPrintAreaData");
    Object* object = objects.Find(notes, designer, enumeration);
    if (!notes.Require(data != nullptr, "no place for the data") || object == nullptr) {
        return kYes;  // nobody looks at it
    }
    notes.Require(*data == nullptr, "the data is not preset to null");
    const PrintArea* area = AreaAt(notes, *object, index);
    const bool gives = area != nullptr && !notes.HasFault("no data");
    notes.Note(Describe(*object, index) + (gives ? "" : " gives none"));
    if (!gives) {
        *data = nullptr;
        return kYes;
    }
    object->Given.push_back(std::make_unique<GivenArea>(*area));
    GivenArea& given = *object->Given.back();
    *data = given.Record();
    if (notes.HasFault("endless chain")) {
        given.CloseChain();
    }
    if (notes.HasFault("zero width")) {
        given.Record()->Width = 0;
    }
    if (notes.HasFault("zero height")) {
        given.Record()->Height = 0;
    }
    return kNo;
}

OPERATION void WINAPI ReleasePrintAreaData(void* designer, void* enumeration, AreaRecord* data) {
    CallNotes notes("ReleasePrintAreaData");
    Object* object = objects.Find(notes, designer, enumeration);
    if (object == nullptr) {
        return;
    }
    notes.Note(objects.NameOf(*object));
    const auto given = std::find_if(object->Given.begin(), object->Given.end(),
                                    [&](const auto& one) { return one->Record() == data; });
    if (notes.Require(given != object->Given.end(), "data that this handle has not given")) {
        object->Given.erase(given);
    }
}

OPERATION void WINAPI DelPrntAreaDlgOrEnumClass(void* designer, void* enumeration) {
    CallNotes notes("DelPrntAreaDlgOrEnumClass");
    Object* object = objects.Find(notes, designer, enumeration);
    if (object == nullptr) {
        return;
    }
    notes.Note(objects.NameOf(*object));
    notes.Require(object->Given.empty(), "area data is not released");
    object->Given.clear();
    object->IsFinished = true;
}
