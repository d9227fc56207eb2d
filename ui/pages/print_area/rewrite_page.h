// The Rewrite page: rewritable cards: their energies and their erase job.
#pragma once

#include "ui/common/page.h"

extern const Page kRewritePage;
