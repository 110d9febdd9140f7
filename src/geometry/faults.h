#pragma once

#include <cmath>

#include "model/failures.h"

namespace brivane {

// Why a sail cannot be computed, told to the user.

/// A number beyond what can be computed with.
inline constexpr BilingualText kOverflowWords{
    "The computation overflows. Please check the dimensions and the mould.",
    "Le calcul déborde. Veuillez vérifier les dimensions et le moule."};
/// The leech would not rise.
inline constexpr BilingualText kPeakBelowClewWords{
    "The peak does not lie above the clew. Please check the diagonal, the gaff and its angle.",
    "Le pic n'est pas au-dessus du point d'écoute. Veuillez vérifier la diagonale, la vergue et "
    "son angle."};
/// Luff, foot and diagonal lie on one line.
inline constexpr BilingualText kFlatSailWords{
    "The sail has no width: luff, foot and diagonal do not make a triangle.",
    "La voile n'a pas de largeur : guindant, bordure et diagonale ne forment pas un triangle."};
/// The shape factors give no section.
inline constexpr BilingualText kMouldWords{
    "The mould cannot be computed. Please check the shape factors and the vertical position of "
    "the maximum depth.",
    "Le moule ne peut pas être calculé. Veuillez vérifier les facteurs de forme et la position "
    "verticale du creux maximum."};
/// No section meets the gaff.
inline constexpr BilingualText kParallelGaffWords{
    "The gaff lies parallel to the foot. Please change the gaff angle a little.",
    "La vergue est parallèle à la bordure. Veuillez modifier un peu l'angle de la vergue."};

/// Throws the overflow fault unless the value is a finite number.
inline void RequireFinite(double value) {
  if (!std::isfinite(value)) throw GeometryFault(kOverflowWords);
}

}  // namespace brivane
