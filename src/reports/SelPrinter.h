#pragma once
// The printer dialog every report opens before it prints.
#include <cstdint>

namespace host { class Host; }

struct SelPrinterResult {
    std::int16_t FromPage = 0;
    std::int16_t ToPage = 0;
    std::int16_t Copies = 0;
    bool Ok = false;
};

// When Ok comes back false the document has been discarded and the caller prints nothing.
SelPrinterResult SelPrinter(host::Host& host);
