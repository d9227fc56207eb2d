// Message boxes shown during a test: each is answered with OK and kept.
#pragma once

#include "platform_test.h"

#include <vector>

namespace test {

struct ShownMessage {
    WideString text;
    WideString title;
    bool hasOwner;
};

void StartMessageBoxes();
void StopMessageBoxes();
/// The boxes shown since StartMessageBoxes, in order.
std::vector<ShownMessage> ShownMessages();

}  // namespace test
