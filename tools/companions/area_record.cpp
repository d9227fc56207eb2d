// Making area data.
#include "area_record.h"

#include <cstring>

namespace {

constexpr int kUnknown = 0xEE;
constexpr int kGone = 0xDD;

}  // namespace

GivenArea::GivenArea(const PrintArea& area) : record_(std::make_unique<AreaRecord>()) {
    std::memset(record_.get(), kUnknown, sizeof(AreaRecord));
    record_->Orientation = area.IsPortrait ? 1 : 2;
    record_->Width = area.Width;
    record_->Height = area.Height;
    record_->CardColor = area.CardColor;
    record_->AreaColor = area.AreaColor;
    record_->First = nullptr;
    for (const AreaBlock& block : area.Blocks) {
        BlockRecord* record = AddBlock();
        record->Kind = block.Kind;
        record->X = block.X;
        record->Y = block.Y;
        record->Width = block.Width;
        record->Height = block.Height;
    }
}

GivenArea::~GivenArea() {
    for (const auto& block : blocks_) {
        std::memset(block.get(), kGone, sizeof(BlockRecord));
    }
    std::memset(record_.get(), kGone, sizeof(AreaRecord));
}

BlockRecord* GivenArea::AddBlock() {
    blocks_.push_back(std::make_unique<BlockRecord>());
    BlockRecord* block = blocks_.back().get();
    std::memset(block, kUnknown, sizeof(BlockRecord));
    block->Next = nullptr;
    (blocks_.size() == 1 ? record_->First : blocks_[blocks_.size() - 2]->Next) = block;
    return block;
}

void GivenArea::CloseChain() {
    if (blocks_.empty()) {
        AddBlock();
    }
    blocks_.back()->Next = record_->First;
}
