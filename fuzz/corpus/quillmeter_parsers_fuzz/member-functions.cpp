int Shape::area() const {
}
int Shape::sides() const noexcept {
}
int geometry::Shape::corners() {
}
Shape& Shape::scale(int factor) {
}
Shape & Shape::move(int x, int y) override {
}
static Shape *Shape::copy(Shape &other) {
}
auto Shape::name() -> int {
}
void Shape::draw(Canvas& canvas) {
}
