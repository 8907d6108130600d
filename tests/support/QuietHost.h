#pragma once
// A host that answers every box with OK, cancels every dialog and shows nothing:
// a base for hosts of tests and benchmarks that override only what they watch.
#include "platform/host/Host.h"
#include "support/RecordingSurface.h"

class QuietHost : public host::Host {
public:
    RecordingSurface printer;
    int MsgBox(const std::string&, int, const std::string&) override { return host::vbOK; }
    std::string InputBox(const std::string&, const std::string&, const std::string&) override { return ""; }
    bool ShowOpen(host::FileDialog&) override { return false; }
    bool ShowSave(host::FileDialog&) override { return false; }
    bool ShowPrinter(host::PrinterDialog&) override { return false; }
    host::PrintSurface& Printer() override { return printer; }
    void ShowForm(forms::Form&, bool) override {}
    void HideForm(forms::Form&) override {}
    void UnloadForm(forms::Form&) override {}
    void Refresh(forms::Form&) override {}
    void SetBusy(bool) override {}
    void PlayWave(const std::string&) override {}
    int OpenDocument(const std::string&) override { return 33; }
    std::optional<std::string> HttpGet(const std::string&) override { return std::nullopt; }
    void ShowHelp(const std::string&, int, int) override {}
    vb::DateTime Now() override { return {2026, 11, 22, 9, 30, 0}; }
    std::string GetSetting(const std::string&, const std::string&, const std::string&,
                           const std::string& def) override { return def; }
    void SaveSetting(const std::string&, const std::string&, const std::string&, const std::string&) override {}
    std::vector<std::pair<std::string, std::string>> GetAllSettings(const std::string&,
                                                                    const std::string&) override { return {}; }
    void DeleteSetting(const std::string&, const std::string&, const std::string&) override {}
};
