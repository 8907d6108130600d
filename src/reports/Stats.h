#pragma once
// The crusade's figures: the statistical report's counts and the visitation
// report's team counts. Each is counted by one routine over the records and
// comes back as plain numbers; the printed page, the screen, the data file and
// the charts all take them from here, so they can never disagree.
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "store/MasterRecord.h"

struct ProgramState;
namespace host { class PrintSurface; }

namespace reports {

// Index 0 of the 1-based tables is not used.
struct StatsCounts {
    int MeetingNumber = 0;   // the crusade's current meeting, kept in 0..40
    int TotalNames = 0, CurrentNames = 0, ClassCount = 0, ClassBaptized = 0, DateSet = 0, InterviewsLeft = 0;
    int LevelA = 0, LevelB = 0, LevelC = 0, Baptisms = 0, MailCount = 0, ActiveNames = 0;
    // Religions 1..14, advertising 1..7, decisions 1..9, ages 0..7; all names and the baptized.
    std::array<int, 15> Religion{}, ReligionBapt{};
    std::array<int, 8> Advert{}, AdvertBapt{};
    std::array<int, 10> Decision{}, DecisionBapt{};
    std::array<int, 8> Age{}, AgeBapt{};
    // Ten times the age index of each baptized person. Wider than the runtime's
    // 16 bits, which would stop past 4681 baptized people over 70.
    long BaptAgeSum = 0;
    // Per meeting 1..40; TotalHist by meetings attended, 0..40.
    std::array<int, 41> Present{}, NewAt{}, AllNights{}, Losses{}, TotalHist{};
    std::array<std::array<int, 41>, 8> AgeAt{};

    // The average age at meeting i printed "##", or "na" when nobody there gave an age.
    std::string AverageAge(int i) const;
    // The AgeGroups entry of the baptized people's average age, "" when none gave one.
    std::string AverageBaptismAge(const std::array<std::string, 8>& ageGroups) const;
};

struct TeamCounts {
    int SabbathMeeting = 8, GospelMeeting = 0;
    // Index 0 to 40 by WorkerCode; a damaged code past 40 counts only in the totals.
    std::array<int, 41> TeamCount{}, TeamVis{}, TeamActive{}, TeamActiveVis{}, TeamCurrent{}, TeamCurrentVis{},
        TeamGospel{}, TeamGospelVis{}, TeamSab{}, TeamSabVis{}, TeamA{}, TeamB{}, TeamC{}, TeamBapt{}, TeamH{},
        TeamM{}, TeamP{}, TeamL{}, TeamLast{};
    int AllNames = 0, AllVisits = 0, AllActive = 0, AllActiveVis = 0, AllCurrent = 0, AllCurrentVis = 0;
    // Teams 1 to 20 only, as the reports sum them.
    int SabbathNames() const;
    int SabbathVisits() const;
};

// What the counting needs of the crusade besides its records.
struct CountSettings {
    int MeetingNumber = 0;
    std::array<std::string, 16> ReligionList;
    std::array<std::string, 41> SermonTitles;
    static CountSettings Of(const ProgramState& p);
};

// Counts record by record; the file pass and the benchmark feed it the same way.
class StatsCounter {
public:
    explicit StatsCounter(const CountSettings& s);
    void Add(const MasterRecord& r);
    const StatsCounts& Counts() const { return c_; }
    const TeamCounts& Teams() const { return t_; }

private:
    void AddStats(const MasterRecord& r);
    void AddTeam(const MasterRecord& r);
    CountSettings s_;
    StatsCounts c_;
    TeamCounts t_;
};

struct CrusadeCounts {
    StatsCounts stats;
    TeamCounts teams;
};

// Reads every record of the crusade once; MasterRec and RecordPos are as they were after.
CrusadeCounts CountCrusade(ProgramState& p);

// The special attendance lines: the label and how many attended that many nights.
std::vector<std::pair<std::string, int>> SpecialLines(const StatsCounts& c);
extern const char* const AdvertisingLabels[8];

// The pages (without EndDoc) and the screen text.
void PrintStats(ProgramState& p, const StatsCounts& c, host::PrintSurface& out);
void PrintTeamStats(ProgramState& p, const TeamCounts& t, host::PrintSurface& out);
std::string StatsScreenText(const ProgramState& p, const StatsCounts& c);
std::string TeamStatsScreenText(const ProgramState& p, const TeamCounts& t);

// Rewrites StatData.txt in the program's folder; false (the operator told) when
// it could not be written.
bool WriteStatData(ProgramState& p, const CrusadeCounts& counts);

}  // namespace reports
