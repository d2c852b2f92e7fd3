#include "engine/language/Drawings.h"

namespace engine::language {

std::vector<Function> drawingStatements()
{
    return {
        FunctionRow("STICKLINE", "两个价位之间的柱", "a stick between two prices, width in tenths of a bar")
            .takes("COND,P1,P2,WIDTH,EMPTY", "sssss")
            .draws(se::DrawType::StickLine),
        FunctionRow("DRAWTEXT", "在价位上写文字", "a text at a price")
            .takes("COND,PRICE,TEXT", "sst")
            .draws(se::DrawType::Text),
        FunctionRow("DRAWTEXTEX", "在固定位置写文字，MODE 0 为像素，1 为千分比",
                    "a text at a fixed place; mode 0: pixels, 1: per mille")
            .takes("COND,MODE,X,Y,TEXT", "sssst")
            .draws(se::DrawType::FixedText),
        FunctionRow("DRAWNUMBER", "在价位上写数字", "a number at a price")
            .takes("COND,PRICE,NUMBER,DECIMALS", "ssss")
            .draws(se::DrawType::Number),
        FunctionRow("DRAWICON", "在价位上画图标，1 为圆，其余为方",
                    "a mark at a price; shape 1: round, else square")
            .takes("COND,PRICE,SHAPE", "sss")
            .draws(se::DrawType::Icon),
        FunctionRow("VERTLINE", "竖线", "a vertical line")
            .takes("COND[,UPPER,LOWER]", "sss")
            .arguments(1, 3)
            .draws(se::DrawType::VertLine),
        FunctionRow("DRAWKLINE", "K 线", "candles")
            .takes("HIGH,OPEN,LOW,CLOSE", "ssss")
            .draws(se::DrawType::Candle, "1023"),
        FunctionRow("STACKVOL", "叠加的成交量柱", "stacked volume bars")
            .takes("A,B,...", "s")
            .arguments(1, kMaxStacked)
            .draws(se::DrawType::StackedVolume),
    };
}

} // namespace engine::language
