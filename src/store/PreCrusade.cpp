#include "store/PreCrusade.h"

#include <filesystem>
#include <fstream>

#include "platform/vb/Strings.h"
#include "store/State.h"

using namespace vb;

std::string PreCrusadePath(const ProgramState& p) {
    std::filesystem::path data(p.DataFile);
    return (data.parent_path() / ("pre_" + data.stem().string() + ".dta")).string();
}

PreCrusadeResult FindPreCrusadeGuest(const ProgramState& p, const std::string& first, const std::string& last,
                                     MasterRecord& guest) {
    std::ifstream in(PreCrusadePath(p), std::ios::binary);
    if (!in) return PreCrusadeResult::NoFile;
    in.seekg(0, std::ios::end);
    const std::streamoff length = in.tellg();
    in.seekg(0);
    if (length % MasterRecord::Length != 0) return PreCrusadeResult::WrongLength;
    auto name = [](const std::string& field) {
        std::string t = Trim(field);
        return t == "Unknown" ? std::string() : t;
    };
    PreCrusadeResult result = PreCrusadeResult::NotFound;
    RecordBytes b{};
    while (in.read(b.data(), b.size())) {
        MasterRecord r = DecodeRecord(b.data());
        // The last match wins.
        if (StrCompText(name(r.FName), Trim(first)) == 0 && StrCompText(name(r.LName), Trim(last)) == 0) {
            guest = r;
            result = PreCrusadeResult::Found;
        }
    }
    return result;
}
