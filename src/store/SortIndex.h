#pragma once
// SortIndex: the in-memory list every screen and report walks, and FullLoad,
// the pass that repairs every record and builds the "alpha" list. The list
// routines here do the file part and say what happened; the screen part (add
// mode, showing the person) is the caller's, in edit/Navigate.h.
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

struct ProgramState;

// Comb sort of entries 1..IndexCount on the last `width` characters.
void SortEntries(ProgramState& p);
// The comb sort over `n` keys of `width` bytes laid `stride` bytes apart from
// `keys`: the order afterwards, as each place's position before (0-based).
// Same swaps as on the entries themselves, so the same result, ties included.
std::vector<int> CombSortOrder(const char* keys, std::size_t stride, std::size_t width, int n, bool descending);
// Position of the first entry whose number is MasterRec's RNum; 0 when none.
int FindByNumber(const ProgramState& p);
// Position of the first entry in list order whose first 4 characters are
// `number` without regard to case, passing over position `passOver`; 0 when none.
// The same answer as walking the list, through the list's index of numbers.
int FirstEntryWithNumber(const ProgramState& p, std::string_view number, int passOver = 0);
// Rebuilds the "alpha" list from the file, skipping deleted records, and sorts it.
void RebuildAlpha(ProgramState& p);
// The file part of the load pass: repairs, rewrites and indexes every record.
// False when the file could not be taken (the operator has been told).
bool FullLoadPass(ProgramState& p);
// Recounts the people of each zip of the zip table.
void CountZips(ProgramState& p);
// The parts of an entry rewritten in place: the person's number in front, and
// the household number that the clean mail list puts after its key.
enum class EntryPart { Number, Household };
// Overwrites that part of the entry with text, cut to the part's width.
void SetEntryPart(std::string& entry, EntryPart part, const std::string& text);
// The entry at `at` of the list gets a new number; the index of numbers follows.
void SetEntryNumber(ProgramState& p, int at, const std::string& number);
// Entry `at` of the list was rewritten in place; `before` is what it held.
void EntryChanged(ProgramState& p, int at, std::string_view before);
// Takes the entry at CurrentIndex out of the list; the one after it, or the one
// before when it was the last, becomes current.
void DropCurrentEntry(ProgramState& p);

// What reading the record of the current entry found.
enum class Fetched {
    Record,      // read into MasterRec
    EmptyList,   // CurrentIndex 0: Loaded is cleared, and the caller starts add mode
    Fault,       // a bad entry or an unreadable record; the operator has been told
};
// The file part of FetchCurrentRecord: reads the record of the entry at CurrentIndex.
[[nodiscard]] Fetched FetchCurrentRecord(ProgramState& p);
// First (0), previous (1), next (2) or last (3) of the list; a clunk at either end.
void StepCurrentIndex(ProgramState& p, int kind);
// The file part of GoRecord: the step, then the fetch. A refused step fetches again.
[[nodiscard]] Fetched GoRecord(ProgramState& p, int kind);

// What the load pass left for the screen.
struct LoadOutcome {
    bool ran = false;    // false: the pass could not run or the file was refused; it is closed, Loaded cleared
    bool show = false;   // a crusade was loaded before: its first person is to be shown
    Fetched fetched = Fetched::Fault;   // the first person's fetch, when show
};
// The file part of FullLoad: the pass, then the fetch of the first person when
// a crusade was loaded. The member step (SaveMembersAfterLoad) follows the
// screen part, so its questions come with the person already on screen.
[[nodiscard]] LoadOutcome FullLoad(ProgramState& p);
