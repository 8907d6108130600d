// Households: people who share an address, and addresses that get no mail
// label or more than one.
#include <vector>

#include "lists/ListEngine.h"
#include "lists/ListRun.h"
#include "lists/Lists.h"
#include "platform/vb/Strings.h"
#include "store/SortIndex.h"

using namespace vb;

namespace lists {
namespace {

bool HasAddress(Rec r) {
    std::string_view a = Trimmed(r.Text(at::Address, 30));
    static constexpr std::string_view unknown = "ADDRESS UNKNOWN";
    if (a.size() != unknown.size()) return !a.empty();
    for (std::size_t i = 0; i < a.size(); ++i)
        if (UCaseChar(a[i]) != unknown[i]) return true;
    return false;
}

// Address, last and first name in upper case, team; with `mailMark` the
// label mark and a group number of "0000" follow.
void BuildHouseholds(ProgramState& p, const std::string& kind, bool mailMark) {
    RememberPrior(p, kind);
    RecordFile file(p);
    EntryBuffer e;
    const KeyOfKind key = KeyFor("DupAddress");
    file.ForEach([&](Rec r, long n) {
        if (!r.Live() || !HasAddress(r)) return;
        e.Begin(r), key(KeyChoices(), r, e);
        if (mailMark) e.Text(r.Int(at::MailList) != 0 ? "M0000" : "N0000");
        e.End(n);
    });
    file.LeaveLastIn(p);
    p.SortName = kind;
    e.Store(p, std::string(), true);
}

std::string_view Piece(const std::string& s, std::size_t from, std::size_t width) {
    return std::string_view(s).substr(from - 1, width);
}

}  // namespace

void BuildDuplicates(ProgramState& p, const std::string& mode) {
    const bool team = mode == "team error", name = mode == "last name";
    BuildHouseholds(p, team ? "TDupAddress" : name ? "NDupAddress" : "DupAddress", false);
    std::vector<std::string>& s = p.SortIndex;
    const int n = p.IndexCount;
    int out = 0;
    bool inRun = false;
    // Only neighbours in sort order are compared; the output never overtakes i.
    for (int i = 1; i <= n - 1; ++i) {
        const std::string &a = s[i], &b = s[i + 1];
        bool sameAddress = Piece(a, 5, 30) == Piece(b, 5, 30);
        bool match = sameAddress && (!name || Piece(a, 35, 20) != Piece(b, 35, 20));
        if (team && match && Piece(a, 75, 2) == Piece(b, 75, 2)) continue;
        if (match) {
            inRun = true;
            s[++out] = a;
        } else if (inRun) {
            s[++out] = a;
            inRun = false;
        }
    }
    if (inRun) s[++out] = s[n];
    s.resize(static_cast<std::size_t>(out) + 1);
    p.IndexCount = out;
    p.CurrentIndex = out > 0 ? 1 : 0;
}

bool BuildCleanMailList(ListRun& p) {
    // Kept so that a refused clean-up leaves the list as it was.
    std::vector<std::string> keptList = std::move(p.SortIndex);
    const int keptCount = p.IndexCount, keptIndex = p.CurrentIndex;
    const std::string keptName = p.SortName, keptPrior = p.PriorSortName;

    p.FamilyCount = 0;
    BuildHouseholds(p, "CleanMailList", true);
    std::vector<std::string>& s = p.SortIndex;
    const int n = p.IndexCount;
    std::vector<std::string> output(1);
    int group = 0;
    for (int i = 1; i <= n;) {
        int end = i;
        while (end + 1 <= n && Piece(s[end + 1], 5, 10) == Piece(s[i], 5, 10)) ++end;
        if (end - i + 1 > MaxFamily) {
            std::string street = Trim(std::string(Piece(s[i], 5, 30)));
            p.SortIndex.swap(keptList);
            p.IndexCount = keptCount, p.CurrentIndex = keptIndex;
            p.SortName = keptName, p.PriorSortName = keptPrior;
            p.FamilyCount = 0;
            p.host.MsgBox("More than " + CStr(MaxFamily) + " people have an address beginning \"" +
                              Left(street, 10) + "\"." + p.CrLf +
                              "The mail list clean-up can sort out at most " + CStr(MaxFamily) +
                              " people at one address. Correct these addresses and try again.",
                          host::vbExclamation, "Clean up Mail List");
            return false;
        }
        ++group;
        int marks = 0;
        for (int k = i; k <= end; ++k) marks += s[k][76] == 'M';
        if (marks == 1) {
            --group;   // needs no attention: its number goes to the next group
        } else {
            std::string number = Right("0000" + CStr(group), 4);
            for (int k = i; k <= end; ++k) {
                SetEntryPart(s[k], EntryPart::Household, number);
                output.push_back(std::move(s[k]));
            }
            ++p.FamilyCount;
        }
        i = end + 1;
    }
    p.SortIndex.swap(output);
    p.IndexCount = static_cast<int>(p.SortIndex.size()) - 1;
    if (p.IndexCount > 0) {
        p.CurrentIndex = 1;
        return true;
    }
    p.CurrentIndex = 0;
    p.host.MsgBox("There are no addresses with more than one mail label.  The list is clean.");
    std::string prior = p.PriorSortName;
    BuildHouseholds(p, "CleanMailList", true);
    p.PriorSortName = prior;
    p.SortName = "mail";
    return true;
}

}  // namespace lists
