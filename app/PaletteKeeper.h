// Keeps the program's palette such that all texts can be read, whatever the desktop's theme is and
// becomes.
#pragma once
#include <QObject>

class PaletteKeeper : public QObject {
    Q_OBJECT

  public:
    // From now on, while it lives. It asks the desktop whether high contrast is wished; the answer
    // may come later, or never where nobody is there to answer.
    PaletteKeeper();

    // From now on the palette is one of high contrast.
    void UseHighContrast();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Keep();

    bool highContrast = false;
    bool keeping = false;
};
