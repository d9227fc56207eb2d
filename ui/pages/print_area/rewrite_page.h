// The Rewrite page: rewritable cards: their energies, what is erased of them, and their erase job.
#pragma once

#include "ui/common/page.h"

extern const Page kRewritePage;
