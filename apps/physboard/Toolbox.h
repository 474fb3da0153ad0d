#pragma once
// The apparatus the library offers, in four groups, with icons the library draws.
#include <QIcon>
#include <QToolBox>

class QListWidget;

class Toolbox : public QToolBox
{
    Q_OBJECT
public:
    enum Group { Mechanics = 0, Electricity, Optics, CircuitSymbols, GroupCount };

    explicit Toolbox(QWidget *parent = nullptr);
    // Which group a type id belongs to (by its range in the type table).
    static Group groupOf(int typeId);
    static QIcon iconFor(int typeId, int side = 48);
    // Names follow the current language.
    void retranslate();
    QListWidget *list(Group g) const { return m_lists[g]; }
    // The list entry of a type id, or null when the library does not make it.
    QListWidget *listOf(int typeId) const;
    int rowOf(int typeId) const;

signals:
    void placeRequested(int typeId);

private:
    QListWidget *m_lists[GroupCount];
};
