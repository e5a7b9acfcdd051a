// What the display is, and the task bar that the program covers while it runs.
#pragma once

namespace tarvik {

struct DisplayFacts {
    int widthPixels = 0; ///< physical pixels
    int heightPixels = 0;
    int twipsPerPixelX = 15; ///< 1440 / dots per inch: 15 at 96, 12 at 120
    int twipsPerPixelY = 15;
    int bitsPerPixel = 32;
};

class Display {
  public:
    virtual ~Display() = default;

    [[nodiscard]] virtual DisplayFacts facts() const = 0;
    /// Where there is no task bar to hide, nothing happens.
    virtual void hideTaskBar() = 0;
    virtual void showTaskBar() = 0;
};

/// A display for tests and for the command line.
class MemoryDisplay final : public Display {
  public:
    explicit MemoryDisplay(const DisplayFacts& facts = {.widthPixels = 1280, .heightPixels = 800})
        : facts_(facts) {}

    [[nodiscard]] DisplayFacts facts() const override { return facts_; }
    void hideTaskBar() override { taskBarShown_ = false; }
    void showTaskBar() override { taskBarShown_ = true; }

    [[nodiscard]] bool taskBarShown() const { return taskBarShown_; }

  private:
    DisplayFacts facts_;
    bool taskBarShown_ = true;
};

} // namespace tarvik
