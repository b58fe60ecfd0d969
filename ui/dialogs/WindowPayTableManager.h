// The pay table manager at the window.
#pragma once
#include "game/EditPayTable.h"

class QWidget;

class WindowPayTableManager : public PayTableManager {
  public:
    // The window outlives the manager.
    explicit WindowPayTableManager(QWidget& window) : window(window) {}

    std::optional<std::string> SelectsGame(const std::vector<std::string>& games,
                                           const std::string& current) override;
    bool Edits(PayTableEditor& editor) override;

  private:
    QWidget& window;
};
