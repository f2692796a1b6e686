- (void)draw                                                                                                                　{
}
- (void)hide {
}
