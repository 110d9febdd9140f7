#include "model/file_text.h"

#include <utility>

namespace brivane {

void FileText::Enlarge(std::size_t bytes) {
  // The last pieces ask for more room than they take.
  constexpr std::size_t kSpare = 512;
  const std::size_t size = Size();
  text_.resize(size + size / 2 + bytes + kSpare);
  end_ = text_.data() + size;
}

std::string FileText::Take() {
  text_.resize(Size());
  return std::move(text_);
}

char* PutAnyFixed(char* at, double magnitude, int places, char decimalMark) {
  return PutWords(at, FormatFixed(magnitude, places, decimalMark));
}

void AppendStrNum(FileText& text, double value) { text += StrNum(value); }

}  // namespace brivane
