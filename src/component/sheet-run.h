#pragma once

#include <QEventLoop>
#include <QObject>
#include <QPointer>

class QEvent;
class VelaSheet;

/// The modal run of a sheet: what the kinds of sheets share from being shown to being answered.
class SheetRun : public QObject
{
public:
    explicit SheetRun(VelaSheet *sheet);

    /// Whether the window cannot be closed while the sheet is up. Consulted by begin(), end() and refusesClose().
    void setBlockWindowButton(bool block);

    /// Shows the sheet, takes the window's close button away and watches the window's events.
    void begin();
    /// Lets the sheet see the events of its window.
    void watchWindow();
    /// Runs an event loop until end() and returns its result; 0 when the window is destroyed meanwhile.
    int wait();
    /// Whether wait() waits for an answer.
    bool isWaiting() const;
    /// Undoes begin() and watchWindow(), ends wait() and emits VelaSheet::finished().
    void end(int result);

    /// To be called by the sheet's destructor: gives the window its close button back, ends wait().
    void abandon();

    /// Whether @p event is an attempt to close the window that is refused, which is done then.
    bool refusesClose(QEvent *event) const;

    /// Gives the focus to the next, or previous, widget of the sheet that takes it by Tab: never to one outside.
    void moveFocus(bool next);

private:
    void giveCloseButtonBack();
    void leave(const QObject *dyingAncestor);

    VelaSheet *const m_sheet;
    QPointer<QEventLoop> m_loop;
    void *m_savedWindowState = nullptr;
    bool m_blocksWindowButton = true;
    bool m_isEnding = false;
};
