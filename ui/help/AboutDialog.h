// The program's icon, name and version.
#pragma once
#include <QDialog>

class AboutDialog : public QDialog {
    Q_OBJECT

  public:
    explicit AboutDialog(QWidget* parent);
};
