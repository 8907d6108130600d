#pragma once
// The cleaning rules of the card's text fields, as free functions over text, so
// that each can be checked on its own cases without a screen.
#include <array>
#include <string>

// An empty text becomes "Unknown"; otherwise the first character is made upper-case.
std::string Capitalize(const std::string& text);
// The address as it is kept: blanks and periods squeezed, words capitalised,
// the usual words shortened, the number sign tidied.
std::string CleanAddress(const std::string& box);
// Digits only, hyphenated when 7 or 10 long; an empty box reads "Unknown".
std::string CleanPhone(const std::string& box);
// The first " at " of an address typed aloud becomes "@".
std::string CleanEmail(const std::string& box);
// The church typed, mapped to the short name the reports group by.
std::string CleanReligion(const std::string& box);
// A state typed with periods or in lower case ("b.c") as it is kept ("BC").
std::string CleanState(const std::string& box);

// One keystroke per age group: a digit chooses the group of AgeGroups.
enum class AgeResult { Group, LeftAlone, NotANumber };
AgeResult CleanAge(const std::string& box, const std::array<std::string, 8>& groups, std::string& out);

// The team code padded to two digits; false when it is not a number from 00 to 40.
bool CleanTeamCode(const std::string& box, std::string& out);
// A registration number of digits only, padded to 4; false when it holds anything else.
bool CleanRegNumber(const std::string& box, std::string& out);

// A Canadian postal code as it is kept: upper case, a blank after the third character.
std::string CanadianZip(const std::string& zip);

// "m/d/yy" padded to "mm/dd/yy".
std::string PadDate(const std::string& text);
// One day forward or back on the text of a "mm/dd/yy" date, the year untouched;
// false when the text is no such date.
bool StepDate(const std::string& text, int days, std::string& out);
