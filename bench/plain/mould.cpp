// Everything of the real source but its walk, which stands aside under another name: here the
// normaliser of every section is searched from the start.
#include "geometry/mould.h"

namespace brivane {

class SetAside {
 public:
  double operator()(double A, double B);

 private:
  int fall_ = 1;
};

double NormaliserWalk::operator()(double A, double B) { return ProfileNormaliser(A, B); }

}  // namespace brivane

#define NormaliserWalk SetAside
#include "../../src/geometry/mould.cpp"
