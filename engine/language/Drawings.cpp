// SPDX-License-Identifier: MIT
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
            .takes("COND,PRICE,NUMBER[,DECIMALS]", "ssss")
            .arguments(3, 4)
            .draws(se::DrawType::Number)
            .built(),
        FunctionRow("DRAWTEXT_FIX", "在窗格的固定位置写文字，X 和 Y 为 0 至 1",
                    "a text at a fixed place, X and Y from 0 to 1 of the pane")
            .takes("COND,X,Y,TYPE,TEXT", "sssst")
            .draws(se::DrawType::FixedText)
            .built(),
        FunctionRow("DRAWBAND", "两线之间的带，A 高时用 C1，否则用 C2",
                    "a band between two lines, C1 where A is higher, else C2")
            .takes("A,C1,B,C2", "scsc")
            .draws(se::DrawType::StickLine)
            .built(),
        FunctionRow("FILLRGN", "两线之间填色，各条件各用一色",
                    "fills between two lines, a colour for each condition")
            .takes("A,B[,COND,COLOR]...", "ss")
            .arguments(2, 2 + 2 * kMaxRegions)
            .draws(se::DrawType::StickLine)
            .built(),
        FunctionRow("PARTLINE", "条件成立处的线段；也可先写价位，再写各条件及其颜色",
                    "a line where it holds; or a price first, then conditions with a colour each")
            .takes("COND,PRICE", "ss")
            .arguments(2, 1 + 2 * kMaxRegions)
            .draws(se::DrawType::SegmentLine)
            .built(),
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
