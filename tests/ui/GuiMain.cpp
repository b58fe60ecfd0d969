// The main function of the tests that show dialogs or paint, for which one application is enough.
#include <gtest/gtest.h>

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

namespace {

// Windows open as at the very first start, whatever the test before has left in them.
class FreshSettings : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo& /*test*/) override { QSettings().clear(); }
};

}  // namespace

// The windows' settings go to a folder of their own, so that a player's are left alone.
int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    QApplication::setOrganizationName("TolvaneTest");
    QApplication::setApplicationName("TolvaneTest");
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new FreshSettings);
    return RUN_ALL_TESTS();
}
