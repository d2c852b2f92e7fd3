// SPDX-License-Identifier: MIT
#include "engine/language/ForeignWords.h"

#include <algorithm>
#include <sstream>

namespace engine::language {

namespace {

/// Words that miss for the same reason.
struct Group
{
    const char* names; ///< with blanks between them
    const char* chinese;
    const char* english;
};

constexpr Group kGroups[] = {
    { "WINNER LWINNER PWINNER COST COSTEX PPART SCR", "筹码分布要有换手记录，日线里没有，不作推算",
      "the distribution of holdings needs records of who sold, which bars do not carry" },
    { "DYNAINFO FINANCE FINONE FINVALUE GPJYVALUE BKJYVALUE SCJYVALUE EXTERNVALUE EXTDATA_USER SELFADD "
      "SIGNALS_SYS "
      "SIGNALS_USER",
      "没有这类行情或财务数据", "there are no quotes or accounts of this kind" },
    { "STKNAME STKLABEL HYBLOCK DYBLOCK GNBLOCK FGBLOCK ZSBLOCK ZHBLOCK ZDBLOCK INBLOCK CODELIKE NAMELIKE "
      "NAMEINCLUDE GETBLOCKNAME",
      "公式不读证券的名称和板块", "formulas do not read the name or the sector of an instrument" },
    { "ADVANCE DECLINE BUYVOL SELLVOL ISBUYORDER L2_AMO L2_VOL L2_VOLNUM LARGEINTRDVOL LARGEOUTTRDVOL "
      "TRADENUM ASKPRICE "
      "BIDPRICE ASKVOL BIDVOL",
      "K 线里没有逐笔或盘口数据", "bars carry no single trades and no order book" },
    { "PLAYSOUND EXPLAIN WRITELOG DEBUGFILE TESTHIDE PRINT FILELINEREAD",
      "公式只计算和绘图，不发声，不写文件",
      "formulas compute and draw; they make no sound and write no file" },
    { "BUY SELL BUYSHORT SELLSHORT BK SK BP SP BPK SPK AUTOFILTER ENTERLONG EXITLONG ENTERSHORT EXITSHORT",
      "公式不下单；买卖点请用条件和 DRAWICON 写",
      "formulas send no orders; write signals as conditions with DRAWICON" },
    { "WHILE FOR REPEAT UNTIL THEN ELSE BEGIN END GOTO BREAK CONTINUE VARIABLE INPUT GLOBALVARIABLE",
      "没有循环和语句分支，用 IF、FILTER 和区间函数写",
      "there are no loops and branches; use IF, FILTER and windows" },
    { "BARSTATUS ISUP ISDOWN ISEQUAL", "请用比较写，如 CLOSE>OPEN、BARPOS=1 或 ISLASTBAR",
      "write a comparison, such as CLOSE>OPEN, BARPOS=1 or ISLASTBAR" },
    { "DRAWBMP DRAWSL DRAWRECTREL DRAWELLIPSE DRAWARC DRAWFLAGTEXT DRAWPIE DRAWRECT", "没有这种图形的画法",
      "there is no painter for this shape" },
    { "DRAWGBK DRAWGBK_DIV", "没有按 K 线着色背景的画法，可用 STICKLINE 或 FILLRGN",
      "there is no painter for the background of bars; use STICKLINE or FILLRGN" },
    { "STRCAT STRCMP STRFIND STRLEFT STRLEN STRMID STRRIGHT STRSPACE SUBSTR CON2STR VAR2STR VARCAT VARCATS "
      "NUMTOSTR "
      "NUMTOSTRN STRTONMB TOSTRING",
      "文字不参加运算，用 DRAWNUMBER 画数字",
      "texts take no part in calculations; DRAWNUMBER draws numbers" },
    { "SARTURN", "请写 CROSS(C,SAR(4,2,20)) 和 CROSS(SAR(4,2,20),C)",
      "write CROSS(C,SAR(4,2,20)) and CROSS(SAR(4,2,20),C)" },
    { "HORLINE DRAWNUMBER_FIX", "没有这种画法；水平线写成 LEVEL:3000;，数值由图例显示",
      "there is no such drawing; write a level as LEVEL:3000; and let the legend show numbers" },
    { "RAND PI ALGORITHM", "没有这个函数；圆周率可写 3.14159265358979",
      "there is no such function; write pi as 3.14159265358979" },
    { "MACHINEDATE MACHINETIME MACHINEWEEK CURRENTDATE CURRENTTIME DATETODAY DAYTODATE TIMETOSEC SECTOTIME "
      "FROMOPEN "
      "DAYS1970 LUNAR",
      "结果不能随计算的时刻改变，请用 K 线的 DATE 和 TIME",
      "a result must not change with the moment it is computed; use DATE and TIME of the bars" },
};

std::vector<ForeignWord> makeWords()
{
    std::vector<ForeignWord> words;
    for (const Group& group : kGroups) {
        std::istringstream names(group.names);
        for (std::string name; names >> name;)
            words.push_back({ name, group.chinese, group.english });
    }
    return words;
}

} // namespace

const std::vector<ForeignWord>& foreignWords()
{
    static const std::vector<ForeignWord> words = makeWords();
    return words;
}

const ForeignWord* findForeignWord(const std::string& key)
{
    const std::vector<ForeignWord>& words = foreignWords();
    const auto found =
        std::find_if(words.begin(), words.end(), [&](const ForeignWord& word) { return word.name == key; });
    return found == words.end() ? nullptr : &*found;
}

} // namespace engine::language
