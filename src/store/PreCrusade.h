#pragma once
// Guests from before the meetings, kept in pre_<name>.dta beside the crusade
// in the record layout. The file is only ever read.
#include <string>

#include "store/MasterRecord.h"

struct ProgramState;

enum class PreCrusadeResult { NoFile, NotFound, Found, WrongLength };

std::string PreCrusadePath(const ProgramState& p);
// The last guest whose trimmed first and last names equal these, without regard
// to case ("Unknown" in the file counts as empty). A file whose length is not a
// whole number of records is not read at all.
PreCrusadeResult FindPreCrusadeGuest(const ProgramState& p, const std::string& first, const std::string& last,
                                     MasterRecord& guest);
