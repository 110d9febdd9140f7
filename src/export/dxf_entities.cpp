#include "export/dxf_entities.h"

#include "model/number_text.h"

namespace brivane {
namespace {

// The coordinates of a vertex, each with the line that follows it.
constexpr NumberPattern kX = {"", 1, 2, " \r\n 20\r\n"};
constexpr NumberPattern kY = {"", 1, 2, " \r\n 30\r\n"};
constexpr NumberPattern kZ = {"", 1, 2, " \r\n"};

// Five blanks before the number's own leading blank.
void AppendColour(FileText& text, std::int16_t colour) {
  text += "     ";
  AppendStrNum(text, colour);
  text += "\r\n";
}

}  // namespace

void WritePolylineHeader(FileText& text, std::int16_t colour) {
  text += "  0\r\nPOLYLINE\r\n  8\r\n1\r\n 62\r\n";
  AppendColour(text, colour);
  text += " 66\r\n      1\r\n  6\r\nCONTINUOUS\r\n 70\r\n      8\r\n";
}

std::string VertexHead(std::int16_t colour) {
  FileText head;
  head += "  0\r\nVERTEX\r\n  8\r\n1\r\n 62\r\n";
  AppendColour(head, colour);
  head += "  6\r\nCONTINUOUS\r\n 70\r\n     32\r\n 10\r\n";
  return head.Take();
}

void WriteVertex(FileText& text, std::string_view vertexHead, double x, double y, double z,
                 char decimalMark) {
  text += vertexHead;
  AppendPattern<kX>(text, x, decimalMark);
  AppendPattern<kY>(text, y, decimalMark);
  AppendPattern<kZ>(text, z, decimalMark);
}

void WritePolylineEnd(FileText& text) { text += "  0\r\nSEQEND\r\n"; }

void WriteEntitiesHead(FileText& text, std::string_view comment) {
  text += "999\r\n";
  text += comment;
  text += "\r\n  0\r\nSECTION\r\n  2\r\nENTITIES\r\n";
}

void WriteEntitiesEnd(FileText& text) { text += "  0\r\nENDSEC\r\n  0\r\nEOF\r\n"; }

}  // namespace brivane
