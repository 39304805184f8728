#pragma once

#include <QPushButton>
#include <functional>
#include <variant>

#include "backend/model/Learned.h"

namespace Gui
{
class Learner;
}

namespace Gui::Forms
{
/// Fills in what it stands beside from the next event of some kinds. It is checked while it waits for one. Escape, a
/// second click, another such button, the loss of the focus to a text or another window, and hiding it end that. The
/// GUI thread.
class LearnButton final : public QPushButton
{
public:
    /// `owner` must outlive it.
    LearnButton(Learner& owner, const Backend::LearnKinds& learnedKinds, QWidget* parent = nullptr);
    ~LearnButton() override { end(); }

    /// Called once after each click at most; it may delete the button.
    std::function<void(const decltype(Backend::Learned::input)& input)> onLearned;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void start();
    void end();
    void setWaiting(bool on);
    void focusMoved(const QWidget* to);

    Learner& learner;
    const Backend::LearnKinds kinds;
    std::uint32_t request = 0;
    QMetaObject::Connection focusConnection;
};
}  // namespace Gui::Forms
