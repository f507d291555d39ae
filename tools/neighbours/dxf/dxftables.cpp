// What every drawing must have before its entities. The numbers are group codes; what is not
// written has the format's own value.
#include "dxflayers.h"
#include "dxfoutput.h"

namespace kvarnio::dxf {
namespace {

using Handle = Output::Handle;

// A table's head; its records follow.
Handle BeginTable(Output& out, char const* name, int records) {
    Handle const table = out.NewHandle();
    out.Text(0, "TABLE").Text(2, name).HandleOf(5, table).HandleOf(330, 0);
    out.Text(100, "AcDbSymbolTable").Integer(70, records);
    return table;
}

void EndTable(Output& out) {
    out.Text(0, "ENDTAB");
}

Output& BeginRecord(Output& out, char const* type, Handle table, char const* kind) {
    return out.Begin(type, out.NewHandle(), table)
        .Text(100, "AcDbSymbolTableRecord")
        .Text(100, kind);
}

// The window, which shows all of the drawing.
void WriteView(Output& out, Extent const& shown) {
    constexpr double wide = 1.6; // width by height, of a screen
    RoadPoint const centre = {(shown.minX + shown.maxX) / 2, (shown.minY + shown.maxY) / 2};
    double const height = std::max(shown.maxX - shown.minX, (shown.maxY - shown.minY) / wide);
    Handle const table = BeginTable(out, "VPORT", 1);
    BeginRecord(out, "VPORT", table, "AcDbViewportTableRecord").Text(2, "*Active").Integer(70, 0);
    out.Number(10, 0).Number(20, 0).Number(11, 1).Number(21, 1);
    out.Number(12, centre.y).Number(22, centre.x);
    out.Number(13, 0).Number(23, 0).Number(14, 10).Number(24, 10).Number(15, 10).Number(25, 10);
    out.Number(16, 0).Number(26, 0).Number(36, 1).Number(17, 0).Number(27, 0).Number(37, 0);
    out.Number(40, height).Number(41, wide).Number(42, 50).Number(43, 0).Number(44, 0);
    out.Number(50, 0).Number(51, 0).Integer(71, 0).Integer(72, 100).Integer(73, 1).Integer(74, 3);
    out.Integer(75, 0).Integer(76, 0).Integer(77, 0).Integer(78, 0);
    EndTable(out);
}

void WriteLineTypes(Output& out) {
    Handle const table = BeginTable(out, "LTYPE", 3);
    for (auto const& [name, description] :
         {std::pair("ByBlock", ""), std::pair("ByLayer", ""), std::pair("Continuous", "Solid")}) {
        BeginRecord(out, "LTYPE", table, "AcDbLinetypeTableRecord").Text(2, name).Integer(70, 0);
        out.Text(3, description).Integer(72, 'A').Integer(73, 0).Number(40, 0);
    }
    EndTable(out);
}

void WriteLayers(Output& out) {
    struct Drawn {
        char const* name;
        int colour;
    };
    constexpr Drawn layers[] = {
        {"0", 7}, {lineLayer, 1}, {tickLayer, 7}, {stationLayer, 7}, {areaLayer, 30}};
    Handle const table = BeginTable(out, "LAYER", static_cast<int>(std::size(layers)));
    for (Drawn const& layer : layers) {
        BeginRecord(out, "LAYER", table, "AcDbLayerTableRecord").Text(2, layer.name);
        out.Integer(70, 0).Integer(62, layer.colour).Text(6, "Continuous");
    }
    EndTable(out);
}

void WriteStyles(Output& out) {
    Handle const table = BeginTable(out, "STYLE", 1);
    BeginRecord(out, "STYLE", table, "AcDbTextStyleTableRecord").Text(2, "Standard");
    out.Integer(70, 0).Number(40, 0).Number(41, 1).Number(50, 0).Integer(71, 0).Number(42, 2.5);
    out.Text(3, "txt").Text(4, "");
    EndTable(out);
    for (char const* const empty : {"VIEW", "UCS"}) {
        BeginTable(out, empty, 0);
        EndTable(out);
    }
}

void WriteApplications(Output& out) {
    Handle const table = BeginTable(out, "APPID", 2);
    for (char const* const name : {"ACAD", "KVARNPROG"}) {
        BeginRecord(out, "APPID", table, "AcDbRegAppTableRecord").Text(2, name).Integer(70, 0);
    }
    EndTable(out);
}

void WriteDimensionStyles(Output& out) {
    Handle const table = BeginTable(out, "DIMSTYLE", 1);
    out.Text(100, "AcDbDimStyleTable").Integer(71, 0);
    out.Text(0, "DIMSTYLE").HandleOf(105, out.NewHandle()).HandleOf(330, table);
    out.Text(100, "AcDbSymbolTableRecord").Text(100, "AcDbDimStyleTableRecord");
    out.Text(2, "Standard").Integer(70, 0);
    EndTable(out);
}

struct Space {
    char const* name;
    Handle record;
};
constexpr Space spaces[] = {{"*Model_Space", Output::modelSpace},
                            {"*Paper_Space", Output::paperSpace}};

void WriteBlockRecords(Output& out) {
    Handle const table = BeginTable(out, "BLOCK_RECORD", static_cast<int>(std::size(spaces)));
    for (Space const& space : spaces) {
        out.Begin("BLOCK_RECORD", space.record, table).Text(100, "AcDbSymbolTableRecord");
        out.Text(100, "AcDbBlockTableRecord").Text(2, space.name).HandleOf(340, 0);
    }
    EndTable(out);
}

void WriteBlocks(Output& out) {
    out.Text(0, "SECTION").Text(2, "BLOCKS");
    for (Space const& space : spaces) {
        bool const isPaper = space.record == Output::paperSpace;
        auto const begin = [&](char const* type) {
            out.Begin(type, out.NewHandle(), space.record).Text(100, "AcDbEntity");
            if (isPaper) {
                out.Integer(67, 1);
            }
            out.Text(8, "0");
        };
        begin("BLOCK");
        out.Text(100, "AcDbBlockBegin").Text(2, space.name).Integer(70, 0);
        out.Number(10, 0).Number(20, 0).Number(30, 0).Text(3, space.name).Text(1, "");
        begin("ENDBLK");
        out.Text(100, "AcDbBlockEnd");
    }
    out.Text(0, "ENDSEC");
}

} // namespace

void WriteTables(Output& out, Extent const& shown) {
    out.Text(0, "SECTION").Text(2, "TABLES");
    WriteView(out, shown);
    WriteLineTypes(out);
    WriteLayers(out);
    WriteStyles(out);
    WriteApplications(out);
    WriteDimensionStyles(out);
    WriteBlockRecords(out);
    out.Text(0, "ENDSEC");
    WriteBlocks(out);
}

void WriteHeader(Output& out, Extent const& shown, Handle seed) {
    constexpr int metres = 6;
    out.Text(0, "SECTION").Text(2, "HEADER");
    out.Text(9, "$ACADVER").Text(1, "AC1015");
    out.Text(9, "$DWGCODEPAGE").Text(3, "ANSI_1252");
    out.Text(9, "$INSUNITS").Integer(70, metres);
    out.Text(9, "$MEASUREMENT").Integer(70, 1);
    out.Text(9, "$EXTMIN").Point(0, {shown.minX, shown.minY});
    out.Text(9, "$EXTMAX").Point(0, {shown.maxX, shown.maxY});
    out.Text(9, "$HANDSEED").HandleOf(5, seed);
    out.Text(0, "ENDSEC");
}

} // namespace kvarnio::dxf
