// The OpenGL 1.x calls that legacy plug-in drawing uses, recorded instead of rendered. They have
// <GL/gl.h>'s signatures, so plug-in code that includes it links against the simulator in tests
// and dravsim; in X-Plane the same names come from the system's OpenGL library.
#include <GL/gl.h>

#include "host/SdkHost.h"

namespace {

sim::DrawRecorder& Recorder() { return sim::SdkHost().drawing; }

float Channel(GLubyte value) { return static_cast<float>(value) / 255.0f; }

}  // namespace

extern "C" {

void glBegin(GLenum mode) { Recorder().BeginPrimitive(static_cast<int>(mode)); }
void glEnd(void) { Recorder().EndPrimitive(); }

void glVertex2i(GLint x, GLint y) { Recorder().Vertex(static_cast<float>(x), static_cast<float>(y)); }
void glVertex2f(GLfloat x, GLfloat y) { Recorder().Vertex(x, y); }
void glVertex2d(GLdouble x, GLdouble y) {
  Recorder().Vertex(static_cast<float>(x), static_cast<float>(y));
}
void glVertex3f(GLfloat x, GLfloat y, GLfloat /*z*/) { Recorder().Vertex(x, y); }

void glTexCoord2f(GLfloat s, GLfloat t) { Recorder().TexCoord(s, t); }
void glTexCoord2i(GLint s, GLint t) {
  Recorder().TexCoord(static_cast<float>(s), static_cast<float>(t));
}

void glColor3f(GLfloat red, GLfloat green, GLfloat blue) { Recorder().Colour(red, green, blue, 1); }
void glColor4f(GLfloat red, GLfloat green, GLfloat blue, GLfloat alpha) {
  Recorder().Colour(red, green, blue, alpha);
}
void glColor3fv(const GLfloat* v) {
  if (v != nullptr) Recorder().Colour(v[0], v[1], v[2], 1);
}
void glColor4fv(const GLfloat* v) {
  if (v != nullptr) Recorder().Colour(v[0], v[1], v[2], v[3]);
}
void glColor3ub(GLubyte red, GLubyte green, GLubyte blue) {
  Recorder().Colour(Channel(red), Channel(green), Channel(blue), 1);
}
void glColor4ub(GLubyte red, GLubyte green, GLubyte blue, GLubyte alpha) {
  Recorder().Colour(Channel(red), Channel(green), Channel(blue), Channel(alpha));
}

void glLineWidth(GLfloat width) { Recorder().LineWidth(width); }

void glRecti(GLint x1, GLint y1, GLint x2, GLint y2) {
  Recorder().Rect(static_cast<float>(x1), static_cast<float>(y1), static_cast<float>(x2),
                  static_cast<float>(y2));
}
void glRectf(GLfloat x1, GLfloat y1, GLfloat x2, GLfloat y2) { Recorder().Rect(x1, y1, x2, y2); }

}  // extern "C"
