// Message boxes as the stand-in keeps them.
#include "message_boxes.h"

#include "platform/host.h"

namespace test {
namespace {

size_t before;

}  // namespace

void StartMessageBoxes() {
    before = host::MessageBoxes().size();
}

void StopMessageBoxes() {}

std::vector<ShownMessage> ShownMessages() {
    std::vector<ShownMessage> messages;
    const std::vector<host::MessageBox>& boxes = host::MessageBoxes();
    for (size_t i = before; i < boxes.size(); ++i) {
        const host::MessageBox& box = boxes[i];
        messages.push_back({box.text, box.title, box.hasOwner});
    }
    return messages;
}

}  // namespace test
