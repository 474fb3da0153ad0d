#pragma once
// The side panel of one apparatus, built from its settings array.
#include <QJsonArray>
#include <QMap>
#include <QToolButton>
#include <QWidget>

class Annotation;
class CWBPhysicalObject;
class QDoubleSpinBox;
class QFormLayout;
class QGroupBox;
class QLabel;

// A swatch that opens a colour dialog; setColor is what a pick does.
class ColorButton : public QToolButton
{
    Q_OBJECT
public:
    explicit ColorButton(QWidget *parent = nullptr);
    QColor color() const { return m_color; }
    void setColor(const QColor &c, bool notify);
signals:
    void colorPicked(const QColor &c);

private:
    void pick();
    QColor m_color;
};

class PropertyPanel : public QWidget
{
    Q_OBJECT
public:
    explicit PropertyPanel(QWidget *parent = nullptr);

    CWBPhysicalObject *object() const { return m_obj; }
    void setObject(CWBPhysicalObject *obj);
    // A mark's colour and size instead of an apparatus's settings.
    void setMark(Annotation *mark);
    Annotation *mark() const { return m_mark; }
    // How many items are selected; with several the panel says so instead.
    void setSelectionCount(int count);
    // Panel ids of the host's colours ("host5002", "host5005").
    static QString hostColorId(int attributeId) { return QStringLiteral("host%1").arg(attributeId); }
    // Builds every editor anew from the apparatus's settings array.
    void rebuild();
    // Re-reads the values; rebuilds when the apparatus now offers other items.
    void refreshValues();
    // Message 100: {"settings":[{"id","value"}]} shown without editing anything.
    void applyMessage(const QByteArray &json);

    QWidget *editor(const QString &id) const { return m_editors.value(id); }
    QLabel *labelOf(const QString &id) const { return m_labels.value(id); }
    const QJsonArray &settings() const { return m_settings; }
    bool wantsRefresh(const QString &id) const;
    // Where the item stands: x, y, turn in degrees, scale in per cent.
    QDoubleSpinBox *placementEditor(int field) const { return m_place[field]; }
    enum PlacementField { PlaceX = 0, PlaceY, PlaceRotation, PlaceScale, PlaceCount };
    void refreshPlacement();
    void retranslate();
    // A value still being typed in a field that has the focus is made an edit now.
    void commitEditing();

signals:
    // A value the user set, as the apparatus reads it back.
    void edited(const QString &id, const QString &value);
    void placementEdited(int field, double value);
    // One of the host's colours (the drawing's or a lamp's light).
    void hostColorEdited(int attributeId, const QColor &color);
    void markColorEdited(const QColor &color);
    void markSizeEdited(double size);
    // The apparatus did not take a value as given (a text cut to length, say).
    void notice(const QString &text);

protected:
    // Undo and redo reach the page, not the field's own typing history.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *makeEditor(const QJsonObject &item);
    void showValue(const QString &id, const QJsonValue &value);

    CWBPhysicalObject *m_obj = nullptr;
    QJsonArray m_settings;
    QFormLayout *m_form;
    QLabel *m_title;
    QMap<QString, QWidget *> m_editors;
    QMap<QString, QLabel *> m_labels;
    bool m_showing = false;
    int m_count = 0;
    void addHostColors();
    void addMarkRows();
    Annotation *m_mark = nullptr;
    QGroupBox *m_placeBox;
    QFormLayout *m_placeForm;
    QDoubleSpinBox *m_place[PlaceCount];
};
