#pragma once
// Generated crusades for the benchmarks: one folder a run, removed at exit,
// each size generated once.
#include <filesystem>
#include <map>
#include <string>
#include <unistd.h>

#include "store/Generator.h"
#include "store/Info.h"
#include "store/Members.h"
#include "store/State.h"
#include "support/QuietHost.h"

class GeneratedCrusades {
public:
    explicit GeneratedCrusades(const std::string& prefix)
        : folder_(std::filesystem::temp_directory_path() / (prefix + std::to_string(::getpid()))) {
        std::filesystem::create_directories(folder_);
    }
    ~GeneratedCrusades() {
        std::error_code ec;
        std::filesystem::remove_all(folder_, ec);
    }
    GeneratedCrusades(const GeneratedCrusades&) = delete;
    GeneratedCrusades& operator=(const GeneratedCrusades&) = delete;

    const std::string& Path(int people) {
        auto it = made_.find(people);
        if (it != made_.end()) return it->second;
        std::string path = (folder_ / ("Bench" + std::to_string(people) + ".dta")).string();
        QuietHost host;
        ProgramState p(host, folder_.string());
        GenerateCrusade(p, path, people, 2026, 24);
        return made_[people] = path;
    }
    const std::string& Folder() const { return folder_.native(); }
    // Points p at the crusade of that size with its tables read, as the generator leaves them.
    void Use(ProgramState& p, int people) {
        p.DataFile = Path(people);
        p.DataFolder = Folder();
        LoadInfo(p);
        LoadZips(p);
        LoadMembers(p);
    }

private:
    std::filesystem::path folder_;
    std::map<int, std::string> made_;
};
