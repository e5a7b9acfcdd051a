// Where commands to the LCU are typed: Enter sends, the arrow keys go through what was sent before.
#pragma once

#include "lcu/command_history.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

#include <functional>
#include <utility>

namespace tarvik {

/// One command.
class CommandBox final : public QLineEdit {
  public:
    using Send = std::function<void(const std::string&)>;

    void whenSent(Send send) { send_ = std::move(send); }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        const std::string typed = text().toStdString();
        switch (event->key()) {
        case Qt::Key_Up:
            return setText(QString::fromStdString(history_.older(typed)));
        case Qt::Key_Down:
            return setText(QString::fromStdString(history_.newer(typed)));
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (text().trimmed().isEmpty()) return;
            history_.add(typed);
            clear();
            return send_(typed);
        default:
            QLineEdit::keyPressEvent(event);
        }
    }

  private:
    CommandHistory history_;
    Send send_;
};

/// Several commands, one a line. Enter sends them all; Shift+Enter begins another line.
class BatchBox final : public QPlainTextEdit {
  public:
    void whenSent(std::function<void()> send) { send_ = std::move(send); }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (!enter) return QPlainTextEdit::keyPressEvent(event);
        if (event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier)) {
            insertPlainText("\n");
        } else {
            send_();
        }
    }

  private:
    std::function<void()> send_;
};

} // namespace tarvik
