// Message boxes as the stand-in keeps them.
#include "message_boxes.h"

#include "platform/host.h"

namespace test {

void StartMessageBoxes() {}

void StopMessageBoxes() {}

std::vector<ShownMessage> ShownMessages() {
    std::vector<ShownMessage> messages;
    for (const host::MessageBox& box : host::MessageBoxes()) {
        EXPECT_FALSE(box.hasOwner);
        messages.push_back({box.text, box.title});
    }
    return messages;
}

}  // namespace test
