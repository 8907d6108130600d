#include "tables/ZipCnt.h"

#include <algorithm>
#include <vector>

#include "platform/vb/Error.h"
#include "platform/vb/Strings.h"
#include "store/RecordLayout.h"
#include "store/State.h"

using namespace forms;
using namespace vb;

namespace {
constexpr int px = TwipsPerPixel;
}  // namespace

std::array<long, 41> CountTeams(ProgramState& p) {
    std::array<long, 41> counts{};
    if (!p.File1.IsOpen()) return counts;
    constexpr std::size_t len = RecordLayout::Length;
    constexpr long kBlock = 256;
    const long count = p.File1.RecordCount();
    std::vector<char> block(static_cast<std::size_t>(std::clamp(count, 1L, kBlock)) * len);
    for (long first = 1; first <= count; first += kBlock) {
        const long k = std::min(kBlock, count - first + 1);
        p.File1.GetRange(first, k, block.data());
        for (long j = 0; j < k; ++j) {
            const char* w = block.data() + j * len + RecordAt::WorkerCode;
            if (w[0] < '0' || w[0] > '4' || w[1] < '0' || w[1] > '9') continue;   // "##" and no team
            const int team = (w[0] - '0') * 10 + (w[1] - '0');
            if (team <= 40) ++counts[static_cast<std::size_t>(team)];
        }
    }
    return counts;
}

ZipCnt::ZipCnt(ProgramState& prog) : Form(prog.host, "ZipCnt"), p(prog) {
    SetCaption("Workers");
    Move(0, 0, 330 * px, 700 * px);
    for (TextBox* t : {&TeamNameBox, &TeamCountBox}) {
        t->MultiLine = true;
        t->FixedPitch = true;
        t->SetFont("Courier New", 9);
        t->Locked = true;
    }
    TeamNameBox.Move(8 * px, 8 * px, 230 * px, 650 * px);
    TeamCountBox.Move(240 * px, 8 * px, 70 * px, 650 * px);
}

void ZipCnt::Form_Activate() {
    std::array<long, 41> counts{};
    IgnoreErrors([&] { counts = CountTeams(p); });
    std::string names, numbers;
    for (int t = 1; t <= 41; ++t) {
        const int team = t == 41 ? 0 : t;
        std::string name = t == 41 ? std::string("Unassigned") : p.TeamNames[static_cast<std::size_t>(team)];
        const long colon = InStr(name, ":");
        if (colon > 0) name = vb::Left(name, colon - 1);
        if (t < 41) name = Right("0" + CStr(team), 2) + " " + name;
        names += name + (t < 41 ? p.CrLf : "");
        numbers += Right("     " + CStr(counts[static_cast<std::size_t>(team)]), 5) + (t < 41 ? p.CrLf : "");
    }
    TeamNameBox.SetText(names);
    TeamCountBox.SetText(numbers);
}
