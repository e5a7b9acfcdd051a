// The four modes between which the operator switches: "REVIEW", "ACQUIRE", "CALIBTEST" and "DEMO".
#pragma once

#include "app/frame.h"

#include <string_view>

namespace tarvik {

class ProgramModes {
  public:
    explicit ProgramModes(Frame& frame) : frame_(frame) {}

    /// `requested` is "REVIEW", "ACQUIRE", "CALIB-TEST" or "DEMO"; any other text does nothing, nor does any
    /// request while a search is under way.
    void Utilities_setprogrammode(std::string_view requested);

    /// Searches for an LCU and shows its model; for `frmNoLCUFound`, which offers to try again.
    bool searchForLcu();

  private:
    struct Mode;
    static const Mode* named(std::string_view requested);

    void review();
    void acquire();
    void calibTest();
    void demo();

    void checkOnly(std::string_view key);
    bool lcuAnswers();
    bool offerSearch();
    [[nodiscard]] bool connected() const;
    void forgetShow();
    void chooseRun();
    void showModel();

    Frame& frame_;
};

} // namespace tarvik
