// A surface with a heading: what belongs together on a screen.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QString>
#include <QVBoxLayout>

namespace tarvik {

class Card final : public QFrame {
  public:
    explicit Card(const QString& heading = {}) : body_(new QVBoxLayout(this)) {
        setProperty("card", true);
        body_->setContentsMargins(16, 12, 16, 16);
        body_->setSpacing(12);
        if (heading.isEmpty()) return;
        auto* const label = new QLabel(heading);
        label->setProperty("role", "head");
        body_->addWidget(label);
    }
    [[nodiscard]] QVBoxLayout* body() const { return body_; }

  private:
    QVBoxLayout* body_;
};

} // namespace tarvik
