#include "store/Records.h"

#include "platform/vb/Strings.h"
#include "store/Info.h"
#include "store/State.h"

using namespace vb;

void OpenRecordFile(ProgramState& p) {
    p.File1.Close();
    p.File1.Open(p.DataFile, ProgramState::RecLen);
    p.RecordCount = p.File1.RecordCount();
}

bool GetRecord(ProgramState& p, long n) { return RecordLayout::Read(p.File1, n, p.MasterRec); }

void PutRecord(ProgramState& p, long n) { RecordLayout::Write(p.File1, n, p.MasterRec); }

std::string NextRNum(ProgramState& p) {
    long before = p.LastRNum;
    if (p.NumberDirection == "UP") p.LastRNum += 1;
    else if (p.NumberDirection == "DOWN") p.LastRNum -= 1;
    std::string num = Right("0000" + Trim(CStr(p.LastRNum)), 4);
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
