// The load pass works on the whole file in memory. It must leave exactly the bytes, the list, the counts
// and the boxes that the record-by-record pass it replaced left; each case holds a digest of that outcome.
#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <functional>

#include "platform/vb/Strings.h"
#include "store/Generator.h"
#include "store/Members.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "support/QuietHost.h"
#include "support/TestCrusade.h"

using namespace vb;

namespace {

// Records every box; answers Cancel to the box whose number is cancelAt (1-based).
class RecordingHost : public QuietHost {
public:
    int cancelAt = 0;
    std::vector<std::string> boxes;
    int busy = 0;
    int MsgBox(const std::string& text, int buttons, const std::string& title) override {
        boxes.push_back(text + "|" + std::to_string(buttons) + "|" + title);
        return static_cast<int>(boxes.size()) == cancelAt ? host::vbCancel : host::vbOK;
    }
    void SetBusy(bool on) override { busy += on ? 1 : -1; }
};

// A generated crusade; `damage` then works on its bytes and its state.
struct Case {
    const char* name;
    int people;
    unsigned seed;
    std::uint64_t digest;
    std::function<void(std::string& bytes, ProgramState& p)> damage = nullptr;
    int cancelAt = 0;
};

void Poke(std::string& bytes, long record, std::size_t offset, const std::string& text) {
    bytes.replace(static_cast<std::size_t>(record - 1) * MasterRecord::Length + offset, text.size(), text);
}

// No first name, no address and this last name: a number drawn for a card never typed.
void Placeholder(std::string& bytes, long record, const std::string& last) {
    Poke(bytes, record, RecordAt::FName, std::string(20, ' '));
    Poke(bytes, record, RecordAt::LName, Fixed(last, 20));
    Poke(bytes, record, RecordAt::Address, std::string(30, ' '));
}

std::string Noise(unsigned seed, std::size_t n) {
    std::string s;
    for (std::size_t i = 0; i < n; ++i) {
        seed = seed * 1103515245u + 12345u;
        s += static_cast<char>((seed >> 16) & 0xFF);
    }
    return s;
}

std::string ReadBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Everything the pass leaves behind, in one comparable text.
std::string Outcome(ProgramState& p, const RecordingHost& h, const std::string& file) {
    std::string all = std::to_string(p.IndexCount) + "/" + std::to_string(p.CurrentIndex) + "/" +
                      std::to_string(p.MeetingNumber) + "/" + p.SortName + "/" + std::to_string(h.busy) + "\n";
    for (const std::string& e : p.SortIndex) all += e + "\n";
    for (int z = 0; z <= p.ZipCount; ++z) all += p.ZipList[z] + "\n";
    for (const std::string& b : h.boxes) all += b + "\n";
    RecordBytes last = EncodeRecord(p.MasterRec);
    all += std::string(last.data(), last.size()) + "\n";
    return all + file;
}

std::uint64_t Digest(const std::string& s) {
    std::uint64_t h = 14695981039346656037ull;
    for (unsigned char ch : s) h = (h ^ ch) * 1099511628211ull;
    return h;
}

std::string RunPass(const Case& c) {
    TempFolder folder;
    RecordingHost h;
    ProgramState p(h, folder.path());
    const std::string dta = folder / "Spring.dta";
    GenerateCrusade(p, dta, c.people, c.seed, 0);
    std::string bytes = ReadBytes(dta);
    LoadZips(p);
    if (c.damage) c.damage(bytes, p);
    std::ofstream(dta, std::ios::binary | std::ios::trunc) << bytes;
    h.cancelAt = c.cancelAt;
    OpenRecordFile(p);
    EXPECT_TRUE(FullLoadPass(p)) << c.name;
    p.File1.Close();
    return Outcome(p, h, ReadBytes(dta));
}

}  // namespace

TEST(LoadPass, LeavesWhatTheRecordByRecordPassLeft) {
    const std::vector<Case> cases = {
        {"empty file", 0, 1, 0xc830113be8f799faull},
        {"one person", 1, 2, 0x82622fcfb19c320eull},
        {"three blocks and a part", 700, 3, 0x2556319a9d607c3eull},
        {"canadian zips, ClearFlag, short zip entries", 800, 5, 0x38f06385257183b7ull,
         [](std::string&, ProgramState& p) {
             p.ZipList[1] = Left(p.ZipList[1], 3);
             p.ZipList[0].clear();
             p.CanadaSorter = true;
             p.ScratchValue = "ClearFlag";
         }},
        {"names, attendance, codes, ages and decisions damaged", 300, 6, 0x467b8668f8e261f2ull,
         [](std::string& b, ProgramState& p) {
             p.DecisionCodes[4] = " ";   // a blank code letter, as a damaged .inf gives
             p.DecisionCodes[6] = "";
             Poke(b, 2, RecordAt::FName, "   ann  ");
             Poke(b, 3, RecordAt::Address, std::string(30, ' '));
             Poke(b, 4, RecordAt::Attendance, std::string(40, ' '));
             Poke(b, 5, RecordAt::Attendance, "  1 3" + std::string(35, '\0'));
             Poke(b, 6, RecordAt::Attendance, std::string(40, 'X'));
             const std::string codes[] = {"4A", "40", "41", "1 ", "##", std::string(2, '\0'), "-1", "  "};
             for (int i = 0; i < 8; ++i) Poke(b, 10 + i, RecordAt::WorkerCode, codes[i]);
             const char* ages[] = {"", "Unknown", "3 thirties", "8 eighties", "  7 seventies", "0 tiny", "12345"};
             for (int i = 0; i < 7; ++i) Poke(b, 20 + i, RecordAt::Age, Fixed(ages[i], 10));
             const char* decisions[] = {" CX", "         ", "CSKPBTADUXYZ", "   ---P", "C S P B U", "\xe9\xe9"};
             for (int i = 0; i < 6; ++i) Poke(b, 30 + i, RecordAt::Decisions, Fixed(decisions[i], 12));
             Poke(b, 40, RecordAt::LName, Fixed("\xe9tienne", 20));
             Poke(b, 41, 0, Noise(41, MasterRecord::Length));   // a few records of noise still load
             Poke(b, 42, 0, std::string(MasterRecord::Length, '\0'));
         }},
        {"placeholders around the last number, going down", 200, 7, 0xa16b41e0c5902f4full,
         [](std::string& b, ProgramState& p) {
             p.LastRNum = 9900;
             for (long r : {50L, 99L, 100L, 101L, 150L}) Placeholder(b, r, "  Unknown");
         }},
        {"placeholders going up, a tail of half a record", 200, 8, 0x89f2a2057e00dc3bull,
         [](std::string& b, ProgramState& p) {
             p.NumberDirection = "UP";
             p.LastRNum = 9900;
             for (long r : {98L, 99L, 100L}) Placeholder(b, r, "Unknown");
             b += std::string(200, 'Z');
         }},
        {"numbers used twice, four times and damaged; Cancel ends the duplicate check", 120, 9, 0x4c6dd5c2d454e5dull,
         [](std::string& b, ProgramState&) {
             for (long r : {2L, 3L}) Poke(b, r, 0, "A-12");
             for (long r : {7L, 8L}) Poke(b, r, 0, "6666");
             for (long r : {10L, 20L, 30L, 40L}) Poke(b, r, 0, "5555");
             for (long r : {50L, 60L}) Poke(b, r, 0, "7777");   // past the Cancel
         }, 4},
        {"the Master crusade renumbers", 150, 11, 0xfefc74e48db81ec4ull,
         [](std::string&, ProgramState& p) { p.CrusadeName = "Master"; }},
    };
    for (const Case& c : cases) EXPECT_EQ(c.digest, Digest(RunPass(c))) << c.name;
}
