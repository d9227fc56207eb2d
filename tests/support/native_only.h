// The fixture of tests that need the stand-in: a real computer cannot make its services fail to
// order, nor show what is held.
#pragma once

#include "driver_test.h"
#include "platform/host.h"

class NativeOnly : public test::DriverTest {};
