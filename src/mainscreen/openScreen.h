#pragma once

#include "load/refDatabases.h"
#include "mainscreen/dataSource.h"
#include "mainscreen/mainMenu.h"
#include "mainscreen/selectDlg.h"

#include <QMainWindow>

#include <functional>
#include <string>

class QLabel;
class QLineEdit;

namespace mainscreen {

class NoticeListModel;
class NoticeListView;
class QtHost;

// The one main window. It owns the session: which working database is open, the list of its notices, what has
// to be offered for saving. It ends the process when it is unloaded.
class OpenScreen : public QMainWindow
{
    Q_OBJECT
public:
    // The host must outlive the screen.
    explicit OpenScreen(QtHost& host);

    [[nodiscard]] const std::string& dbName() const { return m_dbName; }
    [[nodiscard]] bool keysValid() const { return m_keysValid; }
    [[nodiscard]] const std::string& indexInfo() const { return m_references.indexInfo(); }
    [[nodiscard]] const std::string& whereClause() const { return m_filter.whereClause; }
    // The query of the list under the present sort order and filter.
    [[nodiscard]] std::string buildNoticeQuery() const;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    using CheckOfSites = std::function<void()>;

    enum class FileCheck : std::uint8_t
    {
        None,
        Quick
    };

    static constexpr const char* databaseFilter = "Microsoft Access Database (*.mdb)|*.mdb|";

    void build();
    void buildContent();
    void connectMenu();

    // The commands of the menu.
    void openWorkingDatabase();
    void loadElectronicFile();
    void closeWorkingDatabase();
    void sortBy(const char* chosen);
    void filterNotices();
    void linkReferences();
    void showIndexInfo();
    void deleteIndexes();
    void checkSiteNames(const std::function<CheckOfSites()>& prepare);
    void showAbout();
    void exitProgram();

    // Their steps.
    [[nodiscard]] std::string chooseFile(const char* filter, const char* offeredName = "") const;
    static void endFailedChoice(const platform::RuntimeError& failure);
    [[nodiscard]] CheckOfSites askForOneNotice();
    void bindTo(const std::string& path);
    bool pickElectronicFile();
    bool masterIsReadable();
    bool askDateOfReceipt();
    void loadAndList();
    void showLoadMessages();
    void offerSaving();
    void saveChangesToElectFile() const;
    void unload();

    // The list.
    void refreshNoticeList(FileCheck check = FileCheck::None);
    void openDataSource(FileCheck check);
    void loadNoticeKeys();
    void fillList();
    void showLoading();
    void showList();
    void hideList();
    void openNotice();
    void showNotice();
    void returnToList();
    [[nodiscard]] std::int32_t keyOfCurrentRow() const;

    QtHost& m_host;
    MainMenu m_menu;
    DataSource m_dataNtcPub;
    NoticeFilter m_filter;
    std::string m_dbName;
    bool m_keysValid = false;
    refDatabases::RefDatabases m_references;
    bool m_unloaded = false;

    QLineEdit* m_txtFileName = nullptr;
    QLabel* m_lblLoadDB = nullptr;
    QLabel* m_lblCount = nullptr;
    QLabel* m_hint = nullptr;
    NoticeListModel* m_list = nullptr;
    NoticeListView* m_dbGridView = nullptr;
};

} // namespace mainscreen
