// SPDX-License-Identifier: MIT
/// @file A second host, just enough to link the library against: everything that it asks for, in its simplest
/// form.

#include "host/TC/CAppConfig.h"
#include "host/TC/CFormulaHistoryDataManager.h"
#include "host/TC/CFormulaOperateManager.h"
#include "host/TC/CLinkageManager.h"
#include "host/TC/CReplayManager.h"
#include "host/TC/CStockManager.h"
#include "host/TC/Folders.h"
#include "host/TC/Instruments.h"
#include "host/TC/ParserStockDetail.h"
#include "host/TC/PeriodNames.h"
#include "host/TC/Pinyin.h"
#include "host/TC/QReadFile.h"
#include "host/WB/CExcelReader.h"
#include "host/WB/CUiResource.h"
#include "host/WB/NumberFormat.h"
#include "host/WB/SaveFileDialog.h"
#include "host/WB/TextConversion.h"
#include "host/luawrapper/LuaModuleCtrl.h"
#include "host/se/LoadConfig.h"
#include "host/ttservice/CInstrumentDetail.h"
#include "host/ttservice/StockTypeCenter.h"

#include <QDir>

namespace TC {

bool CAppConfig::isClientType(int) const
{
    return false;
}

void CFormulaHistoryDataManager::updateStrategyBacktestData(const QVector<QString>&,
                                                            const QMap<QString, double>&)
{
}

boost::shared_ptr<CFormulaDetail> CFormulaOperateManager::getFormula(const QString&) const
{
    return nullptr;
}

boost::shared_ptr<CFormulaDetail> CFormulaOperateManager::getFormulaByRealName(const QString&) const
{
    return nullptr;
}

bool CFormulaOperateManager::isGroupModelExist(const QString&) const
{
    return false;
}

bool CFormulaOperateManager::isPythonIndex(const QString&) const
{
    return false;
}

CPositionNumber CLinkageManager::getPositionNumber(const QString&) const
{
    return {};
}

CStockManager::Detail CStockManager::getInstrumentDetail(const QString&) const
{
    return nullptr;
}

CStockManager::Detail CStockManager::getInstrumentDetail(const QString&, const QString&) const
{
    return nullptr;
}

bool CStockManager::getMultiStockDetail(const QString&, QVector<Detail>& details) const
{
    details.clear();
    return false;
}

QString ParserStockDetail::key() const
{
    return getDetailQsKey(instrument);
}

bool QReadFile(QString&, QList<QString>& lines, bool)
{
    lines.clear();
    return false;
}

bool isInByPy(const QString&, const QString&)
{
    return false;
}

/// Unlike the embedded host's, a folder that need not exist.
QString getConfigDir()
{
    return qEnvironmentVariable("SEAM_CONFIG_DIR", QDir::tempPath());
}

QString getUserRootDir()
{
    return QDir::tempPath();
}

int getPeriodIndex(EFormulaPeriod)
{
    return 0;
}

QString getCycleName(int)
{
    return QString();
}

QString getDrName(int)
{
    return QString();
}

QString getDetailQsKey(const std::shared_ptr<ttservice::CInstrumentDetail>& instrument)
{
    return instrument ? qnStockKey(instrument->market, instrument->code) : QString();
}

QString getDetailQsName(const std::shared_ptr<ttservice::CInstrumentDetail>& instrument)
{
    return getDetailQsKey(instrument);
}

std::string getDetailMarket(const std::shared_ptr<ttservice::CInstrumentDetail>& instrument)
{
    return instrument ? instrument->market : std::string();
}

double getDetailPriceTick(const std::shared_ptr<ttservice::CInstrumentDetail>& instrument)
{
    return instrument ? instrument->priceTick : 0.0;
}

} // namespace TC

QString qnStockKey(const std::string& market, const std::string& code)
{
    return QString::fromStdString(market + code);
}

int se::loadConfig(const std::string&, const std::string&, const std::string&)
{
    return 0;
}

bool luawrapper::LuaModuleCtrl::checkModule(const QStringList&, bool fallback) const
{
    return fallback;
}

namespace ttservice {

double CInstrumentDetail::getNumber(int) const
{
    return 0.0;
}

bool StockTypeCenter::isTypedStock(int, const std::string&, const std::string&) const
{
    return false;
}

} // namespace ttservice

namespace WB {

/// Every colour of this host is magenta; it has no fonts and no pictures.
QColor* CUiResource::getColor(const QString&) const
{
    static QColor magenta { 255, 0, 255 };
    return &magenta;
}

QFont* CUiResource::getFont(const QString&) const
{
    return nullptr;
}

QPixmap* CUiResource::getPixmap(const QString&) const
{
    return nullptr;
}

QString sToQs(const std::string& text)
{
    return QString::fromStdString(text);
}

QString formatDoubleNumber(double value, int, FormatNumberFlags, bool, const QString&)
{
    return QString::number(value);
}

QString formatIntNumber(int value, int, FormatNumberFlags)
{
    return QString::number(value);
}

QString formatPriceDoubleNumber(double value, double)
{
    return QString::number(value);
}

QString getSaveFileName(QWidget*, const QString&, const QString&, const QString&)
{
    return QString();
}

CExcelReader::CExcelReader(QObject* parent)
    : QObject(parent)
{
}
CExcelReader::~CExcelReader() = default;

bool CExcelReader::init(bool)
{
    return false;
}

bool CExcelReader::isValid() const
{
    return false;
}

bool CExcelReader::open(const QString&)
{
    return false;
}

int CExcelReader::getSheetStartRow(int) const
{
    return 1;
}

int CExcelReader::getSheetRowCount(int) const
{
    return 0;
}

int CExcelReader::getSheetStartCol(int) const
{
    return 1;
}

int CExcelReader::getSheetColCount(int) const
{
    return 0;
}

QString CExcelReader::getData(int, int, int, bool) const
{
    return QString();
}

void CExcelReader::close() { }

void CExcelReader::exitExcel() { }

} // namespace WB
