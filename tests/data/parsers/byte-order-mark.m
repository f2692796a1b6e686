- (void)draw {
}
