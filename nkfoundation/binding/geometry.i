// Geometry: fixed-point vectors, vector arrays, line intersection and point
// rotation.

%{
#include "nkfoundation/geometry/rotators.h"
#include "nkfoundation/geometry/vector.h"
#include "nkfoundation/geometry/vector_array.h"
#include "nkfoundation/geometry/vector_solver.h"
%}

NKF_FRAMED(OVector)
%ignore OVector::kFrame;
%ignore OVector::Fields;
%newobject OVector::opCreateCopy;
// The operators keep their meaning under C#-legal names.
%rename(Negated) OVector::operator-() const;
%ignore OVector::operator+() const;
%rename(Plus) OVector::operator+;
%rename(Minus) OVector::operator-(const OVector&) const;
%rename(Times) OVector::operator*;
%rename(DividedBy) OVector::operator/;
%rename(ShiftedRight) OVector::operator>>;
%rename(ShiftedLeft) OVector::operator<<;
%rename(Add) OVector::operator+=;
%rename(Subtract) OVector::operator-=;
%rename(Multiply) OVector::operator*=;
%rename(Divide) OVector::operator/=;
%rename(ShiftRight) OVector::operator>>=;
%rename(ShiftLeft) OVector::operator<<=;
%rename(IsEqual) OVector::operator==;
%include "nkfoundation/geometry/vector.h"

NKF_OBJECT_ARRAY(OVector_Array, std::shared_ptr<OVector>)
NKF_MOVABLE_ARRAY(OVector_Array, std::shared_ptr<OVector>)
%ignore OVector_Array::kFrame;
// Rectangles come back as values; the pointer forms exist for native callers.
%ignore OVector_Array::ToI32RectPtr;
%ignore OVector_Array::ToDoubleRectPtr;
%include "nkfoundation/geometry/vector_array.h"

// Results through references: the managed side passes holders for the
// vectors; the scalar out-parameters become C# ref/out parameters.
%include <typemaps.i>
%apply bool& OUTPUT { bool& meet, bool& parallel };
%apply long long& OUTPUT { std::int64_t& xs, std::int64_t& ys, std::int64_t& xr, std::int64_t& yr };
%apply double& OUTPUT { double& dist };
%apply int& INOUT { int& x, int& y };
%include "nkfoundation/geometry/vector_solver.h"

%ignore nk::FixedRotation;
%include "nkfoundation/geometry/rotators.h"
