#pragma once
// A helical spring in side view: a stack of identical turns between two optional
// hooks, stretched by a handle at its lower end or by a percentage in the panel.
#include "bases/Attribute.h"

class PHYSICALOBJECT_SHARED_EXPORT CSpring : public CAttribute
{
public:
    explicit CSpring(CSVGObj *owner);
    ~CSpring() override;

    QString getSVG() override;
    int getSVGType() override;
    bool loadSVG(bool bLoad) override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CAttribute::updateSVG;
    QString getPropName(int id) override;
    void UpdateCombobox(bool b) override;
    void ResetAtrribute() override;
    QByteArray GetComboboxData() override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;

    /* 69 */ virtual void posChangedByControl();
    /* 70 */ virtual double getControlPos();
    /* 71 */ virtual void setControlPos(double y);

    void updateSpring();
    QString genPathString(const QString &d, double y, double dy);
    void UpdateHookCount(int n);
    void SetConvertValue(int index);

    int turnCount() const { return m_nTurnCount; }
    int hookCount() const { return m_nHookCount; }
    double turnHeight() const { return m_dTurnHeight; }

protected:
    CSpring(CSVGObj *owner, int turnCount);

    // The handle's place as a truncated percentage of its travel; the coil nudges
    // it up by a hundredth of a percent per 100 units of travel before truncating.
    int positionPercent(bool nudged);
    void postPosition(bool nudged);
    void appendSettings(QJsonArray &array, const QString &countKey, const QString &countLabel, bool nudged);
    void applySettings(QMap<QString, QString> &values, const QString &countKey, bool bRecord, bool bUndo);
    // 2804 captures the hook choice and the handle place, 2805 puts them back.
    void captureOrRestore(int id);

    int m_nTurnCount;
    bool m_bMovingByCode = false;
    double m_dTopHookBottom = 0;
    double m_dTurnHeight = 0;
    double m_dBottomHookHeight = 0;
    int m_nHookCount = 2;

    int m_nCapturedHook = 1;
    double m_dCapturedPos = 0;
};
