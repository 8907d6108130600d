// StatData.txt: the figures one value a line, for the charts outside the program.
#include "platform/host/Host.h"
#include "platform/vb/Error.h"
#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "reports/Stats.h"
#include "store/State.h"

namespace reports {

bool WriteStatData(ProgramState& p, const CrusadeCounts& counts) {
    // The old program read four values of the old file back and never used them:
    // they are not read here. The folder is the program's, not the drive's root.
    const std::string path = p.AppPath + "/StatData.txt";
    const StatsCounts& c = counts.stats;
    const TeamCounts& t = counts.teams;
    try {
        vb::TextWriter out;
        out.Open(path, vb::TextWriter::Mode::Output, true);
        out.PrintLine(p.CrusadeName);
        out.PrintLine(c.MeetingNumber);
        for (std::size_t i = 1; i <= 40; ++i) {
            out.PrintLine(c.Present[i]);
            out.PrintLine(c.NewAt[i]);
            out.PrintLine(c.Losses[i]);
        }
        auto table = [&out](const std::string& name, int all, int bapt) {
            out.PrintLine(name);
            out.PrintLine(all);
            out.PrintLine(bapt);
        };
        for (std::size_t i = 1; i <= 14; ++i) table(p.ReligionList[i], c.Religion[i], c.ReligionBapt[i]);
        for (std::size_t i = 1; i <= 7; ++i) table(AdvertisingLabels[i], c.Advert[i], c.AdvertBapt[i]);
        for (std::size_t i = 1; i <= 9; ++i) table(p.DecisionNames[i], c.Decision[i], c.DecisionBapt[i]);
        for (std::size_t d = 0; d <= 7; ++d) table(p.AgeGroups[d], c.Age[d], c.AgeBapt[d]);
        for (int i = 1; i <= 40; ++i) out.PrintLine(c.AverageAge(i));
        for (int v : {c.LevelA, c.LevelB, c.LevelC, c.Baptisms, c.MailCount, c.TotalNames, c.ActiveNames,
                      c.ClassCount, c.ClassBaptized})
            out.PrintLine(v);
        out.PrintLine(p.ZipCount);
        for (int i = 1; i <= p.ZipCount; ++i) out.PrintLine(p.ZipList[static_cast<std::size_t>(i)]);
        for (std::size_t i = 0; i <= 40; ++i) {
            out.PrintLine(p.TeamNames[i]);
            for (const auto* a : {&t.TeamCount, &t.TeamVis, &t.TeamActive, &t.TeamActiveVis, &t.TeamCurrent,
                                  &t.TeamCurrentVis, &t.TeamGospel, &t.TeamGospelVis, &t.TeamSab, &t.TeamSabVis,
                                  &t.TeamA, &t.TeamB, &t.TeamBapt})
                out.PrintLine((*a)[i]);
        }
        out.Close();
    } catch (const vb::RuntimeError& e) {
        vb::RuntimeError shown = e;
        if (shown.Path.empty()) shown.Path = path;
        p.host.MsgBox(vb::FaultText(shown), host::vbOKOnly | host::vbExclamation, "Statistics");
        return false;
    }
    return true;
}

}  // namespace reports
