// The dialog for an existing file, where a name has a character that the toolkit takes for a sign of its own.
#include "mainscreen/openFileDialog.h"

#include "support/temporaryFolder.h"
#include "support/windows.h"

#include <gtest/gtest.h>
#include <QFileSystemModel>
#include <QListView>
#include <QMessageBox>
#include <QTimer>

namespace {

using mainscreen::OpenFileDialog;

class FileDialog : public testing::Test
{
protected:
    FileDialog()
    {
        dialog.setOption(QFileDialog::DontUseNativeDialog);
        dialog.setOption(QFileDialog::DontUseCustomDirectoryIcons);
        dialog.setDirectory(QString::fromStdString(folder.path().string()));
    }

    void write(const std::string& name)
    {
        std::filesystem::create_directories(std::filesystem::path(folder.file(name)).parent_path());
        static_cast<void>(folder.write(name, "x"));
    }
    QString pathOf(const std::string& name) const { return QString::fromStdString(folder.file(name)); }
    QLineEdit& name() { return windows::control<QLineEdit>(dialog, "fileNameEdit"); }
    void type(const QString& text)
    {
        name().setFocus();
        name().selectAll();
        QTest::keyClicks(&name(), text);
        QTest::keyClick(&name(), Qt::Key_Return);
    }
    // The entry of the list once the folder was read.
    void doubleClick(const QString& entry)
    {
        auto& list = windows::control<QListView>(dialog, "listView");
        QModelIndex index;
        ASSERT_TRUE(QTest::qWaitFor(
            [&] {
                const auto root = list.rootIndex();
                for (int row = 0; row < list.model()->rowCount(root); ++row) {
                    const auto candidate = list.model()->index(row, 0, root);
                    if (candidate.data().toString() == entry)
                        index = candidate;
                }
                return index.isValid();
            },
            30000));
        list.scrollTo(index);
        const auto place = list.visualRect(index).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
    }

    TemporaryFolder folder;
    OpenFileDialog dialog{nullptr, QString()};
};

} // namespace

TEST_F(FileDialog, TakesANameWithAQuotationMarkThatIsTyped)
{
    write("a\"b.mdb");
    windows::open(dialog);
    type("a\"b.mdb");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.chosenFile(), pathOf("a\"b.mdb"));
}

TEST_F(FileDialog, TakesANameWithQuotationMarksThatIsClicked)
{
    write("\"b\".mdb");
    windows::open(dialog);
    doubleClick("\"b\".mdb");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.chosenFile(), pathOf("\"b\".mdb"));
}

TEST_F(FileDialog, GoesIntoAFolderWithAQuotationMark)
{
    write("in\"side/c.mdb");
    windows::open(dialog);
    type("in\"side");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(dialog.directory().absolutePath(), pathOf("in\"side"));
    EXPECT_EQ(name().text(), "");
    type("c.mdb");
    EXPECT_EQ(dialog.chosenFile(), pathOf("in\"side/c.mdb"));
}

TEST_F(FileDialog, TakesAWholePathWithQuotationMarks)
{
    write("in\"side/c\"d.mdb");
    windows::open(dialog);
    type(pathOf("in\"side/c\"d.mdb"));
    EXPECT_EQ(dialog.chosenFile(), pathOf("in\"side/c\"d.mdb"));
}

TEST_F(FileDialog, TakesAnyOtherName)
{
    write("c.mdb");
    windows::open(dialog);
    type("c.mdb");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.chosenFile(), pathOf("c.mdb"));
}

TEST_F(FileDialog, StaysWithANameThatIsNotThere)
{
    windows::open(dialog);
    QTimer::singleShot(0, [] {
        if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
            box->accept();
    });
    type("not\"there.mdb");
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(FileDialog, ComesUpAgainAsTheOperatorLeftIt)
{
    write("here/c.mdb");
    windows::open(dialog);
    windows::click(dialog, "detailModeButton");
    dialog.resize(901, 503);
    const auto look = dialog.look();
    OpenFileDialog next(nullptr, pathOf("here"), look);
    next.setOption(QFileDialog::DontUseNativeDialog);
    windows::open(next);
    EXPECT_EQ(next.size(), QSize(901, 503));
    EXPECT_EQ(next.viewMode(), QFileDialog::Detail);
    EXPECT_EQ(next.directory().absolutePath(), pathOf("here"));
    EXPECT_EQ(next.fileMode(), QFileDialog::ExistingFile);
}
