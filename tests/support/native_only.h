// The fixture of tests that need the stand-in: a real computer cannot make its services fail to
// order, nor show what is held.
#pragma once

#include "driver_test.h"
#include "platform/host.h"

#include <functional>

class NativeOnly : public test::DriverTest {};

namespace test {

/// Does it with its first, second ... call of a kind failing, until it makes fewer. Each time
/// nothing may be held that was not before; `look` then sees what has become of it. Gives how many
/// calls it makes.
inline unsigned FailEach(host::Call kind, const std::function<void()>& what,
                         const std::function<void(unsigned n)>& look = {}) {
    const host::Holdings before = host::CurrentHoldings();
    for (unsigned n = 1;; ++n) {
        host::FailCall(kind, n);
        const unsigned madeBefore = host::CallCount(kind);
        what();
        const unsigned made = host::CallCount(kind) - madeBefore;
        host::FailCall(kind, 0);
        EXPECT_EQ(host::CurrentHoldings(), before) << "call " << n << " of kind " << int(kind);
        if (made < n) {
            return made;
        }
        if (look) {
            look(n);
        }
    }
}

}  // namespace test
