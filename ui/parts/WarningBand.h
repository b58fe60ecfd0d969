// A band above figures that says why they must not be trusted. Hidden while there is nothing to
// say.
#pragma once
#include <QLabel>

class WarningBand : public QLabel {
    Q_OBJECT

  public:
    // The parent's palette is the band's.
    WarningBand(const char* name, QWidget* parent);

    void Warn(const QString& text);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void Colour();
};
