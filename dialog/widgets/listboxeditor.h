#pragma once

#include <QtCore/QPersistentModelIndex>
#include <QtCore/QStringList>
#include <QtWidgets/QWidget>

#include <optional>

class QBoxLayout;
class QKeyEvent;
class QKeySequence;
class QLabel;
class QListWidget;
class QToolButton;

namespace ovsettings {

class LineDelegate;

/// A titled list of lines that the user adds to, edits in place, deletes and moves. Rows count from 0.
///
/// Keys in the list: Insert begins a new line, F2, Enter or a double click edits one, Delete removes it,
/// Alt+Up and Alt+Down move it. A line that is emptied by its editing is deleted; one that was empty before
/// stays. Other list editors derive from this one and override the hooks; lines with a look or data of their
/// own set a delegate and item data on the list, which go along when a line is moved.
class ListBoxEditor : public QWidget {
    Q_OBJECT

public:
    explicit ListBoxEditor(QWidget* parent = nullptr);
    ~ListBoxEditor() override;

    /// The title may hold a mnemonic, which leads to the list.
    void setTitle(const QString& title);

    /// Keeps an empty line at the end of the list, where a new line is begun. It can be neither deleted nor
    /// moved. Takes effect with the next setLines.
    void setPlaceForNew(bool place) { placeForNew_ = place; }

    /// Without its buttons and greyed, the list can only be looked at.
    void setEditable(bool editable);

    /// Replaces all lines, and appends the empty one if there is to be one. Calls no hook.
    void setLines(const QStringList& lines);
    /// All lines, the empty last one included.
    QStringList lines() const;
    int lineCount() const;
    QString line(int row) const;

    /// Changes without a hook. A row beyond the end appends.
    void insertLine(int row, const QString& text);
    void setLine(int row, const QString& text);
    void removeLine(int row);
    /// What a line stands for, where its text cannot say it all. It moves with the line, until the text is
    /// set.
    void setOrigin(int row, const QVariant& origin);
    QVariant origin(int row) const;

    /// -1 if there is none.
    int currentRow() const;
    void setCurrentRow(int row);

    /// Ends editing in place as Enter does. Call before the lines are read.
    void finishEditing();
    /// Whether a line is open whose text the end of editing would change.
    bool isChanging() const;

    /// What the buttons do.
    void deleteLine();
    void moveLine(int distance);

protected:
    /// Begins a new line: in the place for it, or else in one added at the end, which goes again if it is
    /// left empty.
    virtual void newLine();
    /// Edits a line; a double click and Enter come here too. By default in place.
    virtual void editLine(int row);
    /// Makes the control for editing in place. Its user property is the text.
    virtual QWidget* createLineEditor(QWidget* parent, int row);

    /// Told after the user's change. The hook may change the list.
    virtual void lineAdded(int row, const QString& text);
    virtual void lineRenamed(int row, const QString& text);
    virtual void lineDeleted(int row);
    virtual void lineMoved(int from, int to);
    /// Asked before a move. A refused one changes nothing and says nothing.
    virtual bool mayMove(int from, int to);

    QListWidget& list() { return *list_; }
    const QListWidget& list() const { return *list_; }
    /// Gives a line the text that the user chose for it, with all that follows from it.
    void enterText(int row, const QString& text);
    void editInPlace(int row);
    /// Adds an empty line and edits it. It goes again, without a hook, if it is left empty.
    void beginLine(int row);
    /// Ends editing in place as Escape does.
    void cancelEditing();
    /// Adds a button behind the one for a new line.
    QToolButton& addButton(const QString& icon, const QString& text, const QKeySequence& key);

private:
    friend class LineDelegate;

    bool eventFilter(QObject* watched, QEvent* event) override;
    QToolButton* makeButton(const QString& icon, const QString& text, const QKeySequence& key);
    void connectControls();
    void endEditing(int row, const std::optional<QString>& text);
    void changeLine(int row, const QString& text, bool isNew);
    bool handleKey(const QKeyEvent& event);
    bool isPlaceForNew(int row) const;
    bool isEntry(int row) const;
    void updateButtons();

    QBoxLayout* titleRow_;
    QLabel* title_;
    QListWidget* list_;
    LineDelegate* delegate_;
    QToolButton* new_;
    QToolButton* delete_;
    QToolButton* up_;
    QToolButton* down_;
    bool placeForNew_ = false;
    QPersistentModelIndex begun_; ///< the line that was added for the edit that is open
};

} // namespace ovsettings
