class Shape {
 public:
  Shape(int sides) {
  }
  explicit Shape(Color color) {
  }
  virtual ~Shape() {
  }
};

Shape::Shape(int sides) : sides_(sides) {
}

Shape::~Shape() {
}

Shape :: ~ Shape(void)
{
}

Circle::Circle() {
}

static Circle::~Circle() {
}
