#include "store/Records.h"

#include <algorithm>
#include <vector>

#include "platform/vb/Error.h"
#include "platform/vb/Strings.h"
#include "store/Info.h"
#include "store/SortIndex.h"
#include "store/State.h"

using namespace vb;

namespace {

bool FourDigits(const char* t) {
    return std::all_of(t, t + 4, [](char ch) { return ch >= '0' && ch <= '9'; });
}

// The numbering the information file could not give, from the numbers in the
// file (deleted records keep theirs, and an undelete brings them back): the
// direction they were handed out in, and the last one in that direction.
void TakeNumberingFromRecords(ProgramState& p) {
    const bool number = p.LastRNumUnread, direction = p.DirectionUnread;
    p.LastRNumUnread = p.DirectionUnread = false;
    if (!number && !direction) return;
    std::vector<long> nums;
    constexpr long kBlock = 256;
    std::vector<char> block(static_cast<std::size_t>(kBlock) * ProgramState::RecLen);
    for (long first = 1; first <= p.RecordCount; first += kBlock) {
        const long got = p.File1.GetRange(first, std::min(kBlock, p.RecordCount - first + 1), block.data());
        for (long j = 0; j < got; ++j) {
            const char* rnum = block.data() + j * ProgramState::RecLen;
            if (FourDigits(rnum)) nums.push_back(std::stol(std::string(rnum, 4)));
        }
    }
    if (nums.empty()) return;
    if (direction) {
        long rises = 0, falls = 0;
        for (std::size_t i = 1; i < nums.size(); ++i) (nums[i] > nums[i - 1] ? rises : falls) += nums[i] != nums[i - 1];
        p.NumberDirection = rises > falls ? "UP" : "DOWN";
    }
    if (number) {
        const auto [low, high] = std::minmax_element(nums.begin(), nums.end());
        p.LastRNum = p.NumberDirection == "UP" ? *high : *low;
    }
}

}  // namespace

void OpenRecordFile(ProgramState& p) {
    p.File1.Close();
    p.File1.Open(p.DataFile, ProgramState::RecLen);
    p.RecordCount = p.File1.RecordCount();
    TakeNumberingFromRecords(p);
}

bool GetRecord(ProgramState& p, long n) { return RecordLayout::Read(p.File1, n, p.MasterRec); }

namespace {

// A record file deleted or replaced under the running program keeps only the
// open handle: every write to it would vanish at exit. The operator is told
// at each write until the file is back at its place.
void KeepRecordFileInPlace(ProgramState& p) {
    if (p.File1.AtPath()) return;
    const std::string path = p.File1.Path();
    const bool replaced = FileExists(path);
    std::string aside = path + ".replaced";
    for (int i = 2; FileExists(aside); ++i) aside = path + ".replaced" + std::to_string(i);
    std::string text = replaced ? "The crusade's record file was replaced by another file while Vestrel had it open:"
                                : "The crusade's record file was deleted or moved while Vestrel had it open:";
    text += p.CrLf + path + p.CrLf + p.CrLf + "Every record is still held open. Do you want to write the crusade back " +
            "to its place now?" + p.CrLf;
    if (replaced) text += "The other file will be kept as " + aside + "." + p.CrLf;
    text += "If you answer No, this change and every later one are lost when Vestrel closes.";
    if (p.host.MsgBox(text, host::vbYesNo | host::vbExclamation, "Record File Missing") != host::vbYes) return;
    try {
        if (replaced) Name(path, aside);
        p.File1.WriteBack();
    } catch (const RuntimeError& e) {
        p.host.MsgBox("The crusade could not be written back to:" + p.CrLf + path + p.CrLf + p.CrLf + "Error # " +
                          CStr(e.Number) + ": " + e.Description(),
                      host::vbExclamation, "Record File Missing");
    }
}

}  // namespace

void PutRecord(ProgramState& p, long n) {
    KeepRecordFileInPlace(p);
    RecordLayout::Write(p.File1, n, p.MasterRec);
}

void PutRecords(ProgramState& p, long first, long count, const char* bytes) {
    if (count <= 0) return;
    KeepRecordFileInPlace(p);
    p.File1.PutRange(first, count, bytes);
}

std::string NextRNum(ProgramState& p) {
    long before = p.LastRNum;
    const long step = UCase(Trim(p.NumberDirection)) == "UP" ? 1 : -1;
    // A number the list already holds is passed over: the information file
    // may be older than the records (restored, or lost and rebuilt).
    std::string num;
    for (int tries = 0; tries <= 10000; ++tries) {
        p.LastRNum += step;
        num = Right("0000" + Trim(CStr(p.LastRNum)), 4);
        if (FirstEntryWithNumber(p, num) == 0) break;
        if (tries == 10000) {
            p.LastRNum = before;
            p.host.MsgBox("Every registration number is in use.", host::vbExclamation);
            return std::string();
        }
    }
    // A number whose issue is not on disk could be given out again after a crash.
    if (!SaveInfo(p)) {
        p.LastRNum = before;
        return std::string();
    }
    return num;
}

std::string RecordPointer(long n) { return Right("   " + Str(n), 4); }

std::string AlphaEntry(const ProgramState& p, long n) {
    const MasterRecord& r = p.MasterRec;
    return r.RNum.str() + UCase(Left(r.LName, 5)) + UCase(Left(r.FName, 2)) + RecordPointer(n);
}

void DefaultLists(ProgramState& p) {
    static const char* religions[] = {"SDA", "Baptist", "Catholic", "Christian", "ChGod", "NoDenominational",
                                      "Episcopal", "Lutheran", "Methodist", "NoChurch", "UnSpecified", "Other",
                                      "Pentecostal", "Presbyterian"};
    for (int i = 1; i <= 15; ++i) p.ReligionList[i] = i <= 14 ? religions[i - 1] : "";
    static const char* ages[] = {"Unknown", "10-19", "20-29", "30-39", "40-49", "50-59", "60-70", "70+"};
    for (int i = 0; i <= 7; ++i) p.AgeGroups[i] = ages[i];
    static const char* decisions[] = {"Accepts Christ", "Accepts Sabbath", "Keep Sabbath", "Sabbath Prob", "Baptism",
                                      "Tobacco", "Second Advent", "Death and Hell", "Unite"};
    static const char* codes = "CSKPBTADU";
    for (int i = 1; i <= 9; ++i) {
        p.DecisionNames[i] = decisions[i - 1];
        p.DecisionCodes[i] = std::string(1, codes[i - 1]);
    }
    static const char* sermons[] = {"Daniel 2", "Angel Warfare", "Dragon and Woman", "Israel", "The Gospel",
                                    "Antichrist", "Creation", "The Sabbath", "Law and Grace", "Water and Blood",
                                    "Three Angels", "Battle for Mind", "The Lamb", "The Mark", "Death", "Rapture",
                                    "Judgment Day", "Tongues", "The Church", "Fall of Babylon", "Last Day",
                                    "Way of Sin", "Armageddon", "Family of God"};
    for (int i = 1; i <= 40; ++i) p.SermonTitles[i] = i <= 24 ? sermons[i - 1] : "";
    p.TeamNames[0] = "Unassigned:";
    for (int i = 1; i <= 40; ++i) p.TeamNames[i] = "Team # " + Str(i);
    static const char* days[] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday"};
    for (int i = 1; i <= 6; ++i) p.WeekDays[i] = days[i - 1];
    static const char* hours[] = {"08:00am", "09:00am", "10:00am", "11:00am", "12:00", "01:00pm", "02:00pm",
                                  "03:00pm", "04:00pm", "05:00pm", "06:00pm", "07:00pm", "08:00pm", "09:00pm"};
    for (int i = 0; i <= 13; ++i) p.HourLabels[i] = hours[i];
    p.SabAM = {};
}
