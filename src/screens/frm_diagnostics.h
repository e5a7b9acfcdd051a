// The diagnostics console: an engineer talks to the LCU by hand and sees what it says.
#pragma once

#include "lcu/diagnostics_console.h"
#include "lcu/wire_transcript.h"
#include "platform/files.h"
#include "platform/tap_port.h"
#include "screens/diagnostics_panels.h"
#include "screens/screen_dialog.h"

#include <QTimer>

#include <functional>

namespace tarvik {

class frmDiagnostics final : public ScreenDialog, private DiagnosticsView {
  public:
    /// Asks where to save; empty: nowhere.
    using ChooseFile = std::function<Path()>;

    /// All outlive the screen.
    frmDiagnostics(const DiagnosticsModules& modules, TapPort& tap, Files& files, DesktopMemory& memory,
                   QWidget* parent = nullptr, ChooseFile chooseFile = {});
    ~frmDiagnostics() override;

    /// While an exchange or a stream goes on it is stopped first; the screen then closes by itself.
    void done(int result) override;

    [[nodiscard]] const DiagnosticsConsole& console() const { return console_; }

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void statusLine(std::string_view viewerLine) override { lists_->addStatusLine(viewerLine); }
    void statusCleared() override { lists_->status->clear(); }
    void dataAppended(std::string_view text) override { lists_->addData(text); }
    void changed() override;

    void addContent();
    void connectState();
    void connectCommands();
    void connectLists();
    void setDepth();
    void sendBatch();
    void recordRaw(bool on);
    void save();
    void pulse();

    DiagnosticsModules modules_;
    TapPort& tap_;
    Files& files_;
    ChooseFile chooseFile_;
    WireTranscript transcript_;
    DiagnosticsStatePanel* state_;
    DiagnosticsCommandPanel* commands_;
    DiagnosticsListPanel* lists_;
    DiagnosticsConsole console_;
    QTimer pulse_; ///< the depth timer, and what had to wait for an exchange
    bool closing_ = false;
};

} // namespace tarvik
