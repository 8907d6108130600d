#include "platform/host/PrintSurface.h"

#include "platform/vb/Strings.h"

namespace host {

const PrintFont Fonts::fntArial28B{"Arial", 28, true, false};
const PrintFont Fonts::fntArial14{"Arial", 14, false, false};
const PrintFont Fonts::fntArial13U{"Arial", 13, false, true};
const PrintFont Fonts::fntArial13BU{"Arial", 13, true, true};
const PrintFont Fonts::fntArial10U{"Arial", 10, false, true};
const PrintFont Fonts::fntTimes12{"Times New Roman", 12, false, false};
const PrintFont Fonts::fntTimes10{"Times New Roman", 10, false, false};
const PrintFont Fonts::fntTimes8{"Times New Roman", 8, false, false};
const PrintFont Fonts::fntTimes8B{"Times New Roman", 8, true, false};
const PrintFont Fonts::fntCourier7B{"Courier New", 7, true, false};
// The misspelt face is what the reports have always asked for; the surfaces map it.
const PrintFont Fonts::fntCourrier8{"courrier new", 8, false, false};

void PrintSurface::Print(long value, bool stayOnLine) {
    Print(vb::Str(value), stayOnLine);
}

}  // namespace host
