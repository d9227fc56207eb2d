// The Rewrite page: rewritable cards: their energies and their erase job.
#include "ui/pages/print_area/rewrite_page.h"

#include "ui/common/language.h"

constinit const Page kRewritePage = {
    .Slot = kRewriteSlot, .Section = kRewritableSection, .OffersHelp = false};
