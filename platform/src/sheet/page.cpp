// Making and releasing pages of property sheets, and turning their templates into those of children
// of the sheet.
#include "sheet/page.h"

#include <cstring>
#include <set>

namespace {

std::set<HPROPSHEETPAGE> pages;  // that belong to no sheet yet

constexpr DWORD kKnownFlags = PSP_DLGINDIRECT | PSP_USEICONID | PSP_USETITLE | PSP_HASHELP;
// The page record's first version ends here.
constexpr DWORD kLeastSize = offsetof(PROPSHEETPAGEW, pszHeaderTitle);

// Steps through a dialog template of either form.
class TemplateReader {
  public:
    explicit TemplateReader(const void* start)
        : start_(static_cast<const WORD*>(start)), at_(start_) {
        extended_ = start_[0] == 1 && start_[1] == 0xFFFF;
        at_ += extended_ ? 13 : 9;
        const WORD* place = at_ - 5;
        items_ = place[0];
        size_ = {static_cast<SHORT>(place[3]), static_cast<SHORT>(place[4])};
        SkipName();  // the menu
        SkipName();  // the class
        title_ = reinterpret_cast<const WCHAR*>(at_);
        SkipText();
        if ((Style() & DS_SETFONT) != 0) {
            at_ += extended_ ? 3 : 1;
            SkipText();
        }
        for (int i = 0; i < items_; ++i) {
            SkipItem();
        }
    }

    size_t StyleAt() const { return extended_ ? 6 : 0; }
    size_t ExtendedStyleAt() const { return extended_ ? 4 : 2; }
    DWORD Style() const {
        return start_[StyleAt()] | static_cast<DWORD>(start_[StyleAt() + 1]) << 16;
    }
    SIZE Size() const { return size_; }
    const WCHAR* Title() const { return title_; }
    std::vector<WORD> Copy() const { return {start_, at_}; }

  private:
    void SkipText() {
        while (*at_++ != 0) {
        }
    }
    void SkipName() {
        if (*at_ == 0xFFFF) {
            at_ += 2;
        } else {
            SkipText();
        }
    }
    void SkipItem() {
        at_ += (at_ - start_) % 2;
        at_ += extended_ ? 12 : 9;
        SkipName();  // the class
        SkipName();  // the text
        const size_t bytes = *at_++;
        at_ += (bytes + 1) / 2;
    }

    const WORD* start_;
    const WORD* at_;
    bool extended_;
    int items_;
    SIZE size_;
    const WCHAR* title_;
};

const void* FindTemplate(const PROPSHEETPAGEW& page) {
    if ((page.dwFlags & PSP_DLGINDIRECT) != 0) {
        return page.pResource;
    }
    const HRSRC found = FindResourceW(page.hInstance, page.pszTemplate, RT_DIALOG);
    const HGLOBAL loaded = found == nullptr ? nullptr : LoadResource(page.hInstance, found);
    return loaded == nullptr ? nullptr : LockResource(loaded);
}

void Put(std::vector<WORD>& words, size_t at, DWORD number) {
    words[at] = LOWORD(number);
    words[at + 1] = HIWORD(number);
}

void CheckKnown(const PROPSHEETPAGEW& page) {
    const bool icon = (page.dwFlags & PSP_USEICONID) != 0 && page.pszIcon != nullptr;
    const bool numberedTitle = (page.dwFlags & PSP_USETITLE) != 0 &&
                               IS_INTRESOURCE(page.pszTitle) && page.pszTitle != nullptr;
    if ((page.dwFlags & ~kKnownFlags) != 0 || page.dwSize > sizeof(page) || icon || numberedTitle) {
        host::Unsupported("property sheet page of %u bytes with flags %#x%s%s", page.dwSize,
                          page.dwFlags, icon ? ", an icon" : "",
                          numberedTitle ? ", a title by number" : "");
    }
}

}  // namespace

namespace host {

HPROPSHEETPAGE NewSheetPage(const PROPSHEETPAGEW& from) {
    if (from.dwSize < kLeastSize) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto made = std::make_unique<_PSP>();
    PROPSHEETPAGEW& page = made->page;
    std::memcpy(&page, &from, std::min<size_t>(from.dwSize, sizeof(page)));
    CheckKnown(page);
    if (made->Has(PSP_USETITLE) && page.pszTitle != nullptr) {
        made->title = page.pszTitle;
        page.pszTitle = made->title.c_str();
    }
    if (!made->Has(PSP_DLGINDIRECT) && !IS_INTRESOURCE(page.pszTemplate)) {
        made->templateName = page.pszTemplate;
        page.pszTemplate = made->templateName.c_str();
    }
    pages.insert(made.get());
    return made.release();
}

bool TakeSheetPage(HPROPSHEETPAGE page) {
    return pages.erase(page) != 0;
}

void DeleteSheetPage(HPROPSHEETPAGE page) {
    pages.erase(page);
    delete page;
}

bool PrepareSheetPage(_PSP& page) {
    const void* found = FindTemplate(page.page);
    if (found == nullptr) {
        return false;
    }
    const TemplateReader reader(found);
    page.size = reader.Size();
    page.layout = reader.Copy();
    if (!page.Has(PSP_USETITLE)) {
        page.title = reader.Title();
    }
    constexpr DWORD kOwnFrame = WS_POPUP | WS_VISIBLE | WS_DISABLED | WS_CAPTION | WS_SYSMENU |
                                WS_THICKFRAME | WS_MINIMIZEBOX | DS_MODALFRAME;
    constexpr DWORD kPage = WS_CHILD | WS_TABSTOP | DS_CONTROL | DS_3DLOOK;
    Put(page.layout, reader.StyleAt(), (reader.Style() & ~kOwnFrame) | kPage);
    Put(page.layout, reader.ExtendedStyleAt(), WS_EX_CONTROLPARENT);
    return true;
}

void ResetSheets() {
    for (const HPROPSHEETPAGE page : pages) {
        delete page;
    }
    pages.clear();
}

unsigned HeldSheetPages() {
    return static_cast<unsigned>(pages.size());
}

}  // namespace host

HPROPSHEETPAGE WINAPI CreatePropertySheetPageW(LPCPROPSHEETPAGEW page) {
    if (host::FailsNow(host::Call::kSheet)) {
        return nullptr;
    }
    return host::NewSheetPage(*page);
}

BOOL WINAPI DestroyPropertySheetPage(HPROPSHEETPAGE page) {
    if (!pages.contains(page)) {
        return FALSE;
    }
    host::DeleteSheetPage(page);
    return TRUE;
}
