// Area data as the designer gives it out: a record of the library's own memory, with its blocks.
#pragma once

#include "print_area.h"

#include <memory>

/// A block of the chain.
struct BlockRecord {
    BYTE Unknown0[8];    //   0
    BYTE Kind;           //   8
    BYTE Unknown9[3];    //   9
    WORD X;              //  12
    WORD Y;              //  14
    WORD Width;          //  16
    WORD Height;         //  18
    BYTE Unknown20[84];  //  20
    BlockRecord* Next;   // 104
};
static_assert(sizeof(BlockRecord) == 112);

/// The header.
struct AreaRecord {
    BYTE Unknown0[10];     //   0
    BYTE Orientation;      //  10  1 made for a portrait card
    BYTE Unknown11[81];    //  11
    DWORD Width;           //  92
    DWORD Height;          //  96
    BYTE Unknown100[4];    // 100
    COLORREF CardColor;    // 104
    COLORREF AreaColor;    // 108
    BYTE Unknown112[696];  // 112
    BlockRecord* First;    // 808
    BYTE Unknown816[8];    // 816
};
static_assert(sizeof(AreaRecord) == 824);

/// Area data for as long as a caller has it; what nobody may read is not zero, and what was there
/// afterwards is overwritten.
class GivenArea {
  public:
    explicit GivenArea(const PrintArea& area);
    ~GivenArea();
    GivenArea(const GivenArea&) = delete;
    GivenArea& operator=(const GivenArea&) = delete;

    AreaRecord* Record() const { return record_.get(); }

    /// A chain without end.
    void CloseChain();

  private:
    BlockRecord* AddBlock();

    std::unique_ptr<AreaRecord> record_;
    std::vector<std::unique_ptr<BlockRecord>> blocks_;
};
