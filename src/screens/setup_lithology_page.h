// Setup, page 3: lithology. Not built yet; the page says so and where to put the notes meanwhile.
#pragma once

#include "screens/setup_modules.h"
#include "screens/setup_page.h"

namespace tarvik {

class SetupLithologyPage final : public SetupPage {
  public:
    explicit SetupLithologyPage(const SetupModules& modules);

    void load() override;

  private:
    SetupModules modules_;
    QLabel* folder_;
};

} // namespace tarvik
