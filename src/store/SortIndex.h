#pragma once
// SortIndex: the in-memory list every screen and report walks, and FullLoad,
// the pass that repairs every record and builds the "alpha" list.
#include <cstddef>
#include <string>
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
