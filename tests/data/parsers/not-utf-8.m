// café
- (void)café {
}
- (void)draw {
}
+ (id)shape {
}
int main(void) {
}
